#include "edit/dateformatselector.h"

#include "app/resourceicons.h"
#include "calc/datetimeformat.h"
#include "calc/datetimeformateditor.h"
#include "lib/qt/mlcombobox.h"
#include "store/mrlpim.h"

#include <QHBoxLayout>
#include <QToolButton>

DateFormatSelector::DateFormatSelector(QWidget *parent, const QString &listName)
    : QWidget(parent)
    , m_listName(listName)
    , m_combo(new MLComboBox(false, this))
    , m_button(new QToolButton(this))
{
    m_combo->setObjectName(QStringLiteral("formats"));
    m_button->setObjectName(QStringLiteral("btnEdit"));
    m_button->setIcon(loadIconSet(QStringLiteral("package_utilities")));
    m_button->setToolTip(tr("Edit the date formats"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_combo, 1);
    layout->addWidget(m_button);
    setFocusProxy(m_combo);

    reload();
    setFormat(QString());
    connect(m_combo, &QComboBox::activated, this, &DateFormatSelector::activated);
    connect(m_button, &QToolButton::clicked, this, &DateFormatSelector::edit);
}

QString DateFormatSelector::format() const
{
    return m_format;
}

void DateFormatSelector::setFormat(const QString &code)
{
    // No code yet: the first of the list, as the box shows it.
    if (code.isEmpty()) {
        m_format = m_combo->count() > 0 ? m_combo->itemText(0) : QString();
        m_combo->setCurrentIndex(m_combo->count() > 0 ? 0 : -1);
        return;
    }
    m_format = code;
    if (!m_combo->setCurrentItemText(code)) {
        addCode(code);
        m_combo->setCurrentIndex(m_combo->count() - 1);
    }
}

void DateFormatSelector::addCode(const QString &code)
{
    m_combo->addItem(code);
    // The code's look on a sample day, so that a code can be told by what it makes.
    const QDateTime sample(QDate(2033, 11, 22), QTime(13, 5, 9));
    m_combo->setItemData(m_combo->count() - 1, formatDateTime(sample, code), Qt::ToolTipRole);
}

void DateFormatSelector::reload()
{
    m_combo->clear();
    const QStringList codes = MRLPIM::loadDataList(m_listName);
    for (const QString &code : codes)
        addCode(code);
}

void DateFormatSelector::activated(int index)
{
    const QString code = m_combo->itemText(index);
    if (code == m_format)
        return;
    m_format = code;
    Q_EMIT changed();
}

void DateFormatSelector::edit()
{
    const QString before = m_format;
    DateTimeFormatEditor editor(m_listName, before, this);
    const bool accepted = editor.exec() == QDialog::Accepted;
    // The editor writes its list back however it closes.
    reload();
    setFormat(accepted ? editor.format() : before);
    if (m_format != before)
        Q_EMIT changed();
}
