#include "reminders/categoriesselector.h"

#include "app/resourceicons.h"
#include "lib/qt/mlcombobox.h"
#include "reminders/categoiesdialog.h"
#include "store/pimmanager.h"
#include "store/pimrecord.h"

#include <QHBoxLayout>
#include <QToolButton>

namespace
{
const QChar separator = QLatin1Char('|');
} // namespace

CategoriesSelector::CategoriesSelector(QWidget *parent)
    : QWidget(parent)
    , m_combo(new MLComboBox(false, this))
    , m_edit(new QToolButton(this))
{
    m_edit->setObjectName(QStringLiteral("btnCategories"));
    m_edit->setIcon(loadIconSet(QStringLiteral("category")));
    m_edit->setEnabled(false);
    connect(m_edit, &QToolButton::clicked, this, &CategoriesSelector::edit);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_combo, 1);
    layout->addWidget(m_edit);
}

void CategoriesSelector::setRecord(const PIMRecord *record)
{
    m_manager = record->manager() ? record->manager()->relatedManager() : nullptr;
    m_edit->setEnabled(m_manager != nullptr);
    setCategories(record->categories());
}

void CategoriesSelector::setCategories(const QStringList &uids)
{
    m_combo->clear();
    m_entries.clear();
    if (!m_manager)
        return;
    QStringList known;
    for (const QString &uid : uids) {
        if (m_manager->findByUid(uid) && !known.contains(uid))
            known.append(uid);
    }
    if (known.size() > 1) {
        addSets(known);
        addSingles(QString());
        m_combo->setCurrentIndex(0);
        return;
    }
    const PIMRecord *first = m_manager->first();
    addSingles(!known.isEmpty() ? known.first() : first ? first->uidString() : QString());
}

// One entry per category, the current one chosen.
void CategoriesSelector::addSingles(const QString &current)
{
    for (const PIMRecord *record : m_manager->view()) {
        m_combo->addIconItem(QStringLiteral("category"), record->title());
        m_entries.append(record->uidString());
        if (record->uidString() == current)
            m_combo->setCurrentIndex(int(m_entries.size()) - 1);
    }
}

// One entry per category of the set, with that category in front.
void CategoriesSelector::addSets(const QStringList &uids)
{
    for (const QString &uid : uids) {
        QStringList set = uids;
        set.move(set.indexOf(uid), 0);
        m_combo->addItem(titleOf(uid) + QStringLiteral(" [...]"));
        m_entries.append(set.join(separator));
    }
}

QString CategoriesSelector::titleOf(const QString &uid) const
{
    const PIMRecord *record = m_manager->findByUid(uid);
    return record ? record->title() : QString();
}

QStringList CategoriesSelector::currentCategories() const
{
    return m_entries.value(m_combo->currentIndex()).split(separator, Qt::SkipEmptyParts);
}

void CategoriesSelector::apply(PIMRecord *record) const
{
    record->setCategories(currentCategories());
}

// A cancelled dialog keeps the choice, less any category it removed.
void CategoriesSelector::edit()
{
    if (!m_manager)
        return;
    CategoiesDialog dialog(m_manager, currentCategories(), this);
    if (dialog.exec() == QDialog::Accepted)
        setCategories(dialog.selectedCategories());
    else
        setCategories(currentCategories());
}
