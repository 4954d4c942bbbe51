#ifndef IMPORTEDCARD_H
#define IMPORTEDCARD_H

#include <QString>

#include <memory>

class DBManager;
class DataManager;

// A card that an import is making. It is written under a temporary name beside its final
// one and renamed only after a good save, so a failed import never leaves a half card
// under a name the card list could pick up.
class ImportedCard
{
public:
    // folder plus baseName plus ".card", or with "_Copy_N" (N from 1) until the name is free.
    static QString freePath(const QString &folder, const QString &baseName);

    ImportedCard(const QString &path, const QString &description);
    // Removes the temporary file of an import that was not finished.
    ~ImportedCard();

    DataManager *card() const { return m_card.get(); }
    QString path() const { return m_path; }
    // Saves, renames to the final name and adds the card to the list (saving the list).
    bool finish(DBManager *list);
    QString errorString() const { return m_error; }

private:
    QString m_path;
    QString m_temporaryPath;
    std::unique_ptr<DataManager> m_card;
    QString m_error;
};

#endif
