#ifndef PIMLISTVIEW_H
#define PIMLISTVIEW_H

#include "lib/qt/mrllistview.h"

#include <QList>
#include <QPixmap>
#include <QPointer>
#include <QTimer>

class Config;
class PIMManager;
class PIMRecord;
class QLabel;
class QMenu;
class QSpinBox;
class QToolButton;
class RecordItem;

// The list of the records of one PIMManager. It shows one page of the manager's visible
// list at a time (only that page's rows exist), follows the manager's changes row by row,
// keeps the manager's last current record, and reports taps and press-and-hold on a cell
// with the field of the touched column.
//
// Live lists follow the manager's whole visible list; other lists hold only the records
// handed to them through newTask().
class PIMListView : public MRLListView
{
    Q_OBJECT

public:
    // Posted by a press and a release on the list, so that the list has moved its current
    // row before the touch is looked at.
    enum { PressEvent = 1001, ReleaseEvent = 1002 };
    static constexpr int holdMilliseconds = 500;

    explicit PIMListView(QWidget *parent = nullptr, const QString &name = QString());
    ~PIMListView() override;

    void setManager(PIMManager *manager, bool live);
    PIMManager *manager() const { return m_manager; }
    bool isLive() const { return m_live; }

    // The field shown in each column, in column order; setting them rebuilds the columns.
    void setColumns(const QList<int> &columns);
    const QList<int> &fieldColumns() const { return m_columns; }
    // The columns kept under "column" in the settings group "<object name>_columns".
    void readColumns();

    void setPaged(bool paged);
    bool isPaged() const { return m_paged; }
    int page() const { return m_page; }
    int perPage() const { return m_perPage; }
    int pageCount() const;

    PIMRecord *currentTask() const;
    RecordItem *currentRecordItem() const;
    RecordItem *findItem(PIMRecord *record) const;
    // The field of a column; -1, with a warning, for a column that does not exist.
    int fieldAt(int column) const;
    // The column that shows a field, or -1.
    int columnOf(int field) const;

    // The list's cell icons; entry 0 is always "empty".
    QPixmap icon(int index) const { return m_icons.value(index); }
    int iconCount() const { return int(m_icons.size()); }

    // Shows the page that holds record (the first page when it has none) with record
    // current, or the first row of the page when record is null or not on it.
    void showRecord(PIMRecord *record);
    void showPage(PIMRecord *record);

public Q_SLOTS:
    virtual void init();
    virtual void newTask(PIMRecord *record);
    virtual void updateTask(PIMRecord *record);
    virtual void removeTask(PIMRecord *record);
    virtual void taskSelected(PIMRecord *record);
    virtual void sectionClicked(int section);

    void unsetManager();
    void headerSizeChange(int section, int oldSize, int newSize);
    void dateFormatChanged();
    void timeout();
    void currentTaskChanged();
    void taskClicked();
    void pageUp();
    void pageDown();
    void setPage(int page);
    void setPerPage(int perPage);
    void gotoFirstPage();
    void gotoLastPage();

Q_SIGNALS:
    void selectionCleared();
    void selected(PIMRecord *record);
    void activate(PIMRecord *record);
    void activate(const QPoint &point, PIMRecord *record, int field);
    void clicked(PIMRecord *record);
    void popup(const QPoint &point, PIMRecord *record);
    void popup(const QPoint &point, PIMRecord *record, int field);

protected:
    // Widths in pixels of today's date, time and date-time in the system's forms.
    virtual void setDateWidths(int date, int time, int dateTime);
    virtual void columnResized(int section, int newWidth);
    // Adds the column for a field; config is open on the "<object name>_columns" group,
    // or null when the application has no settings file.
    virtual void addField(int field, Config *config);
    virtual RecordItem *createItem(PIMRecord *record);
    virtual RecordItem *createItem(PIMRecord *record, RecordItem *after);

    // Loads a picture as the next cell icon and gives its index.
    int addIcon(const QString &name);

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Rows as high as the tallest icon the list can show needs, whichever columns show.
    void fitRowsToIcons();
    void buildPageBar();
    void buildPagePopup();
    void setTriangles();
    void rebuildColumns();
    void refreshPerPage();
    void refreshPageBar();
    void showPageBar(bool show);
    void showPagePopup();
    int visibleCount() const;
    int indexOf(PIMRecord *record) const;
    RecordItem *lastRecordItem() const;
    RecordItem *addRow(PIMRecord *record, RecordItem *after);
    void initNotLive(const QString &uid);
    void removeLive(PIMRecord *record);
    int fieldUnderCursor() const;
    bool handleKey(QKeyEvent *event);

    PIMManager *m_manager = nullptr;
    bool m_live = false;
    QTimer m_pressTimer;
    QList<QPixmap> m_icons;
    QList<int> m_columns;
    QWidget *m_pageBar = nullptr;
    QToolButton *m_pageBack = nullptr;
    QToolButton *m_pageForward = nullptr;
    QLabel *m_pageLabel = nullptr;
    QLabel *m_totalLabel = nullptr;
    int m_perPage = 1;
    int m_page = 1;
    QMenu *m_pagePopup = nullptr;
    QSpinBox *m_pageSpin = nullptr;
    QSpinBox *m_perPageSpin = nullptr;
    bool m_paged = false;
    QPointer<PIMManager> m_related;
};

#endif
