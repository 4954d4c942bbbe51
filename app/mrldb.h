#ifndef MRLDB_H
#define MRLDB_H

#include "app/mrlmainwindow.h"

class DBManager;
class DataManager;
class ListView;
class PIMRecord;
class QMenu;
class QPlainTextEdit;
class QToolButton;

// The main window: the tool bar and menus of every command, the place of the record list
// and the memo pane under it. The options it keeps are in group "Options" of the
// application's settings file.
class MRLDB : public MRLMainWindow
{
    Q_OBJECT

public:
    // The delay of the chooser or of the end after a failed opening, so that a running
    // dialog or menu closes first.
    static constexpr int deferMilliseconds = 400;
    // Posted to open the current card anew once a running dialog has closed, which is how
    // a change of its view's columns takes effect.
    enum { ReopenCardEvent = 1003 };

    explicit MRLDB(QWidget *parent = nullptr);
    // Writes the options.
    ~MRLDB() override;

    // Where the record list goes; its font is the zoomed list font.
    QWidget *recordListPlace() const { return listPlace; }

    // The one road into an open card: closes the open one, asks for the card's password,
    // loads it and shows its records. An empty path opens the first available card. A card
    // without a password opens without any dialog, so tests and benchmarks can drive this.
    void openCard(const QString &path);
    DataManager *openedCard() const { return manager; }
    DBManager *cards() const { return cardList; }
    ListView *records() const { return recordList; }

public Q_SLOTS:
    void zoomin() override;
    void zoomout() override;
    void dbNew();
    void dbSelect();
    void doEditCard();
    void doRemoveCard();
    void selectionCleared();
    void selected(PIMRecord *record);
    void editDialogIsFree(bool *free);
    void raiseMainWindow();
    void toggleMemo();

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void createActions();
    void createToolBar();
    QToolButton *addMenuButton(QToolBar *bar, const QString &icon, const QString &tip, QMenu *menu);
    QMenu *createMainMenu();
    void createPanes();

    void createCardList();
    void connectCardActions();
    void setCardActionsEnabled(bool enabled);
    void createRecordList();
    void closeCard();
    QString firstAvailableCard() const;
    void showCard();
    void setCardSetting(const QString &path);
    QString cardSetting() const;

    void applyZoom(int size);
    void readOptions();
    void writeOptions();
    void setRecordActionsEnabled(bool enabled);

    QWidget *listPlace = nullptr;
    ListView *recordList = nullptr;
    QPlainTextEdit *memoEdit = nullptr;
    DataManager *manager = nullptr;
    DBManager *cardList = nullptr;
    QToolButton *filterButton = nullptr;
    QMenu *filterMenu = nullptr;
    QToolButton *viewButton = nullptr;
    QMenu *viewMenu = nullptr;
    QToolButton *sortButton = nullptr;
    QMenu *sortMenu = nullptr;
    bool editing = false;
};

#endif
