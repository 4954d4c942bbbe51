#ifndef IMPORTDIALOG_H
#define IMPORTDIALOG_H

#include "exchange/importdialogbase.h"

#include <QStringList>

class DBManager;
class QTextCodec;

// The one entry to importing: pick a source kind, a file and a codec, and each import
// makes a new card in the card list. The dialog stays for further imports until the user
// closes it; importedPath() then names the last card made.
class ImportDialog : public ImportDialogBase
{
    Q_OBJECT

public:
    enum Source { MobileDB = 0, JFile = 1, Text = 2 };

    // With a path, the source is preset from the file and the path is the list's one file.
    ImportDialog(DBManager *manager, const QString &path = QString(), QWidget *parent = nullptr,
        const char *name = nullptr);
    ~ImportDialog() override;

    QString importedPath() const { return m_importedPath; }
    // The paths the list shows, in order.
    QStringList listedPaths() const;

public Q_SLOTS:
    void sourceSelected(int index) override;
    void fileSelected(int row) override;
    void open() override;
    void reload() override;
    void import() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void fillChoices();
    void readOptions();
    void writeOptions() const;
    static int sourceOfFile(const QString &path, int fallback);
    void enableJFileChoices();
    bool wanted(const QString &path) const;
    void addRow(const QString &path, const QString &icon);
    QTextCodec *codec() const;
    void importPalm(const QString &path);
    // Runs the text wizard on the file; true when a card was made.
    bool importTextFile(const QString &path);
    void finished(int count, const QString &path);

    DBManager *m_manager;
    QString m_givenPath;
    QStringList m_collected;
    QString m_selected;
    QString m_importedPath;
    bool m_searched = false;
};

#endif
