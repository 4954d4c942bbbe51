#ifndef QCHOOSEPIXMAP_H
#define QCHOOSEPIXMAP_H

#include <QString>

class QWidget;

// Asks for a picture file, starting in the folder of the last such choice ("imagesetuppath"
// of group "Options"), which the chosen folder then becomes. The path, or a null string.
QString qChoosePixmap(QWidget *parent = nullptr);

// The file dialog's filter: all pictures the toolkit can write, each kind of them, all files.
QString pixmapFilter();

#endif
