#include "exchange/importedcard.h"

#include "card/datamanager.h"
#include "store/dbmanager.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace
{
// Far more copies than anyone keeps; past it the import is refused rather than searched on.
constexpr int maxCopies = 10000;
} // namespace

QString ImportedCard::freePath(const QString &folder, const QString &baseName)
{
    const QString stem = folder + QLatin1Char('/') + baseName;
    if (!QFileInfo::exists(stem + QStringLiteral(".card")))
        return stem + QStringLiteral(".card");
    const QString copy = QCoreApplication::translate("ImportedCard", "Copy");
    for (int n = 1; n <= maxCopies; ++n) {
        const QString path = QStringLiteral("%1_%2_%3.card").arg(stem, copy).arg(n);
        if (!QFileInfo::exists(path))
            return path;
    }
    return QString();
}

ImportedCard::ImportedCard(const QString &path, const QString &description)
    : m_path(path)
    , m_temporaryPath(path + QStringLiteral(".import"))
{
    QFile::remove(m_temporaryPath);
    m_card = std::make_unique<DataManager>(m_temporaryPath);
    m_card->load();
    m_card->setDescription(description);
    m_card->setIcon(QStringLiteral("12"));
}

ImportedCard::~ImportedCard()
{
    if (m_card) {
        m_card->setReadOnly(true);
        m_card.reset();
        QFile::remove(m_temporaryPath);
    }
}

bool ImportedCard::finish(DBManager *list)
{
    const bool saved = m_card->forceSave();
    m_error = m_card->errorString();
    m_card.reset();
    if (!saved || QFileInfo::exists(m_path) || !QFile::rename(m_temporaryPath, m_path)) {
        if (m_error.isEmpty())
            m_error = QCoreApplication::translate("ImportedCard", "Cannot write to file:\n%1")
                          .arg(m_path);
        QFile::remove(m_temporaryPath);
        return false;
    }
    if (list)
        list->addCard(m_path);
    return true;
}
