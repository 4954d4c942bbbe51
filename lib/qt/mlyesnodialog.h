#ifndef MLYESNODIALOG_H
#define MLYESNODIALOG_H

#include <QString>

// The confirmation asked before something is thrown away: "Yes" or "No", with Return
// meaning yes and Escape no.
class MLYesNoDialog
{
public:
    // True for "Yes".
    static bool ask(const QString &caption, const QString &text);
};

#endif
