#ifndef REPORTSCROLLVIEW_H
#define REPORTSCROLLVIEW_H

#include <QScrollArea>

class ReportView;

// Scrolls a report page up and down; the page is always as wide as the room beside the
// vertical scroll bar, and is laid out anew when that changes.
class ReportScrollView : public QScrollArea
{
    Q_OBJECT

public:
    explicit ReportScrollView(QWidget *parent = nullptr);

    ReportView *reportView() const { return m_view; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    ReportView *m_view;
};

#endif
