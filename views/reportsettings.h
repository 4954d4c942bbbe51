#ifndef REPORTSETTINGS_H
#define REPORTSETTINGS_H

#include <QColor>

// The colours and alignments of the report page, kept in the group "reportcolors" of the
// application's settings. An invalid line or separator colour means that line is not drawn.
struct ReportSettings {
    QColor background;
    QColor labelColor;
    QColor lineColor;
    QColor separatorColor;
    QColor valueColor;
    int labelAlign;
    int valueAlign;

    static constexpr int alignRight = 2;
    static constexpr int alignLeft = 1;
    static constexpr int alignCenter = 36;

    ReportSettings();

    // The stored settings; a missing or unreadable entry takes its default.
    static ReportSettings read();
    // Stores every entry at once; an invalid line or separator colour as the empty string.
    void write() const;

    bool operator==(const ReportSettings &other) const = default;
};

#endif
