#ifndef MRLDB_H
#define MRLDB_H

#include "app/mrlmainwindow.h"

class DataManager;
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
    explicit MRLDB(QWidget *parent = nullptr);
    // Writes the options.
    ~MRLDB() override;

    // Where the record list goes; its font is the zoomed list font.
    QWidget *recordListPlace() const { return listPlace; }

public Q_SLOTS:
    void zoomin() override;
    void zoomout() override;
    void selectionCleared();
    void selected(PIMRecord *record);
    void editDialogIsFree(bool *free);
    void raiseMainWindow();
    void toggleMemo();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void createActions();
    void createToolBar();
    QToolButton *addMenuButton(QToolBar *bar, const QString &icon, const QString &tip, QMenu *menu);
    QMenu *createMainMenu();
    void createPanes();

    void applyZoom(int size);
    void readOptions();
    void writeOptions();
    void setRecordActionsEnabled(bool enabled);

    QWidget *listPlace = nullptr;
    QPlainTextEdit *memoEdit = nullptr;
    DataManager *manager = nullptr;
    QToolButton *filterButton = nullptr;
    QMenu *filterMenu = nullptr;
    QToolButton *viewButton = nullptr;
    QMenu *viewMenu = nullptr;
    QToolButton *sortButton = nullptr;
    QMenu *sortMenu = nullptr;
    bool editing = false;
};

#endif
