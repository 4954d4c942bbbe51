#ifndef MLDIALOGBUTTONS_H
#define MLDIALOGBUTTONS_H

class QDialog;
class QDialogButtonBox;

// The foot of a dialog: Ok and Cancel in the platform's order, named "btnOk" and "btnCancel",
// with the program's icons, wired to accept and reject. Ok is the default button, so Return
// accepts from any single-line field; a multi-line editor keeps Return for itself.
class MLDialogButtons
{
public:
    // The box, made a child of dialog; the caller places it in its layout.
    static QDialogButtonBox *okCancel(QDialog *dialog);
};

#endif
