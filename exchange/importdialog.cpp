#include "exchange/importdialog.h"

#include "app/mrldialog.h"
#include "app/resourceicons.h"
#include "exchange/cardimporttarget.h"
#include "exchange/importcsvdialog.h"
#include "exchange/jfileimporter.h"
#include "exchange/jfilereader.h"
#include "exchange/mobiledbimporter.h"
#include "platform/config.h"
#include "platform/global.h"
#include "store/mrlpim.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTextCodec>

namespace
{
const QString optionsGroup = QStringLiteral("ImportOptions");
const char *const optionKeys[] = { "sources", "unicode", "dateFormat", "calcFields" };
const QString importPathKey = QStringLiteral("importpath");

struct SourceKind {
    const char *type;
    const char *creator;
    const char *mimeFilter;
    const char *icon;
    const char *browseFilter;
};

const SourceKind sourceKinds[] = {
    { "Mdb1", "Mdb1", "palm/database", "pda",
        QT_TRANSLATE_NOOP("ImportDialog", "MobileDB Card (*.pdb);;") },
    { "JfD5", "JFi5", "palm/database", "pda",
        QT_TRANSLATE_NOOP("ImportDialog", "JFile 5.x Card (*.pdb);;") },
    { nullptr, nullptr, "text/*;csv/csv", "document",
        QT_TRANSLATE_NOOP("ImportDialog", "Text File (*.txt *.csv);;") },
};

// The codecs after the first entry, which is the local 8-bit conversion.
QList<QByteArray> codecNames()
{
    QList<QByteArray> names;
    for (int mib : QTextCodec::availableMibs()) {
        if (QTextCodec *codec = QTextCodec::codecForMib(mib))
            names.append(codec->name());
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

bool hasType(const QString &path, const SourceKind &kind)
{
    QFile file(path);
    PalmDatabase header;
    return file.open(QIODevice::ReadOnly) && header.read(&file, true)
        && header.isType(kind.type, kind.creator);
}
} // namespace

ImportDialog::ImportDialog(
    DBManager *manager, const QString &path, QWidget *parent, const char *name)
    : ImportDialogBase(parent)
    , m_manager(manager)
    , m_givenPath(path)
{
    setObjectName(QString::fromLatin1(name ? name : "ImportDialog"));
    fillChoices();
    readOptions();
    if (!path.isEmpty())
        sources->setCurrentIndex(sourceOfFile(path, sources->currentIndex()));
    enableJFileChoices();
}

ImportDialog::~ImportDialog()
{
    writeOptions();
}

void ImportDialog::fillChoices()
{
    for (int i = 0; i < 3; ++i) {
        static const char *const names[]
            = { QT_TR_NOOP("MobileDB"), QT_TR_NOOP("JFile 5.x"), QT_TR_NOOP("Text/CSV") };
        sources->addItem(loadIconSet(QString::fromLatin1(sourceKinds[i].icon)), tr(names[i]));
    }
    unicode->addItem(tr("Default"));
    for (const QByteArray &name : codecNames())
        unicode->addItem(QString::fromLatin1(name));
    dateFormat->addItems(JFileImporter::dateFormats());
    calcFields->addItems({ tr("Import Formula"), tr("Import Value") });
    btnReload->setIcon(loadIconSet(QStringLiteral("reload")));
    btnOpen->setIcon(loadIconSet(QStringLiteral("fileopen")));
    btnImport->setIcon(loadIconSet(QStringLiteral("import")));
}

void ImportDialog::readOptions()
{
    Config config(MRLPIM::applicationName());
    config.setGroup(optionsGroup);
    QComboBox *boxes[] = { sources, unicode, dateFormat, calcFields };
    for (int i = 0; i < 4; ++i) {
        const int index = config.readNumEntry(QString::fromLatin1(optionKeys[i]), 0);
        boxes[i]->setCurrentIndex(index >= 0 && index < boxes[i]->count() ? index : 0);
    }
}

void ImportDialog::writeOptions() const
{
    Config config(MRLPIM::applicationName());
    config.setGroup(optionsGroup);
    const QComboBox *boxes[] = { sources, unicode, dateFormat, calcFields };
    for (int i = 0; i < 4; ++i)
        config.writeEntry(QString::fromLatin1(optionKeys[i]), boxes[i]->currentIndex());
}

int ImportDialog::sourceOfFile(const QString &path, int fallback)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("csv") || suffix == QLatin1String("txt"))
        return Text;
    if (suffix != QLatin1String("pdb"))
        return fallback;
    for (int source : { MobileDB, JFile }) {
        if (hasType(path, sourceKinds[source]))
            return source;
    }
    return fallback;
}

QStringList ImportDialog::listedPaths() const
{
    QStringList paths;
    for (int row = 0; row < files->count(); ++row)
        paths.append(files->item(row)->data(Qt::UserRole).toString());
    return paths;
}

void ImportDialog::showEvent(QShowEvent *event)
{
    ImportDialogBase::showEvent(event);
    if (!m_searched)
        reload();
}

void ImportDialog::sourceSelected(int)
{
    enableJFileChoices();
    reload();
}

void ImportDialog::enableJFileChoices()
{
    const bool jfile = sources->currentIndex() == JFile;
    for (QWidget *widget : std::initializer_list<QWidget *> {
             dateFormat, dateFormatLabel, calcFields, calcFieldsLabel })
        widget->setEnabled(jfile);
}

void ImportDialog::fileSelected(int row)
{
    m_selected = row >= 0 ? files->item(row)->data(Qt::UserRole).toString() : QString();
}

void ImportDialog::addRow(const QString &path, const QString &icon)
{
    auto *item = new QListWidgetItem(loadIconSet(icon), QFileInfo(path).fileName());
    item->setData(Qt::UserRole, path);
    files->addItem(item);
}

bool ImportDialog::wanted(const QString &path) const
{
    const SourceKind &kind = sourceKinds[sources->currentIndex()];
    return !kind.type || hasType(path, kind);
}

// The documents of the source's kind, then the files browsing has collected.
void ImportDialog::reload()
{
    m_searched = true;
    const SourceKind &kind = sourceKinds[sources->currentIndex()];
    const QString keep = m_selected;
    files->clear();
    QStringList found;
    if (m_givenPath.isEmpty())
        found = Global::findDocuments(QString::fromLatin1(kind.mimeFilter));
    for (const QString &path : found) {
        if (wanted(path))
            addRow(path, QString::fromLatin1(kind.icon));
    }
    const QStringList extra = m_givenPath.isEmpty() ? m_collected : QStringList { m_givenPath };
    for (const QString &path : extra) {
        if (QFileInfo::exists(path) && !listedPaths().contains(path))
            addRow(path, QStringLiteral("filenew"));
    }
    const int row = std::max(0, int(listedPaths().indexOf(keep)));
    files->setCurrentRow(files->count() ? row : -1);
    btnImport->setEnabled(files->count() > 0);
}

void ImportDialog::open()
{
    Config config(MRLPIM::applicationName());
    config.setGroup(QStringLiteral("Options"));
    QStringList filters;
    const int current = sources->currentIndex();
    filters.append(tr(sourceKinds[current].browseFilter));
    for (int i = 0; i < 3; ++i) {
        if (i != current)
            filters.append(tr(sourceKinds[i].browseFilter));
    }
    QFileDialog dialog(this, tr("Import"), config.readEntry(importPathKey));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(filters.join(QString()) + tr("All Files") + QStringLiteral(" (*)"));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().first();
    config.writeEntry(importPathKey, QFileInfo(path).absolutePath());
    if (!m_collected.contains(path))
        m_collected.append(path);
    m_givenPath.clear();
    m_selected = path;
    reload();
}

QTextCodec *ImportDialog::codec() const
{
    const int index = unicode->currentIndex();
    return index > 0 ? QTextCodec::codecForName(unicode->currentText().toLatin1()) : nullptr;
}

void ImportDialog::import()
{
    if (m_selected.isEmpty())
        return;
    btnImport->setEnabled(false);
    QApplication::processEvents();
    if (sources->currentIndex() == Text)
        importTextFile(m_selected);
    else
        importPalm(m_selected);
    btnImport->setEnabled(files->count() > 0);
}

void ImportDialog::importPalm(const QString &path)
{
    CardImportTarget target(m_manager, codec());
    bool done = false;
    int count = 0;
    QString message;
    if (sources->currentIndex() == MobileDB) {
        MobileDBImporter importer(&target);
        done = importer.import(path);
        count = importer.count();
        message = importer.errorString();
    } else {
        const auto calculated = calcFields->currentIndex() == 1 ? JFileImporter::ImportValue
                                                                : JFileImporter::ImportFormula;
        JFileImporter importer(&target, dateFormat->currentText(), calculated);
        done = importer.import(path);
        count = importer.count();
        message = importer.errorString();
    }
    if (!done) {
        MRLDialog::ask(tr("Import"), message, QStringLiteral("import2"), tr("Ok"),
            QStringLiteral("button_ok"));
        return;
    }
    finished(count, target.path());
}

bool ImportDialog::importTextFile(const QString &path)
{
    int count = 0;
    QString card;
    const bool made = ImportCSVDialog::importFile(m_manager, path, codec(), this, &count, &card);
    // A stopped wizard keeps a card of the rows so far; it is the one to open.
    if (!card.isEmpty())
        m_importedPath = card;
    if (made)
        finished(count, card);
    return made;
}

void ImportDialog::finished(int count, const QString &path)
{
    m_importedPath = path;
    const int choice = MRLDialog::ask(tr("Import"),
        tr("Success imported %1 records.\nDo you want continue import?").arg(count),
        QStringLiteral("import2"), tr("Continue"), QStringLiteral("button_ok"), tr("Close"),
        QStringLiteral("button_cancel"));
    if (choice != 1)
        reject();
}
