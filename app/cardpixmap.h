#ifndef CARDPIXMAP_H
#define CARDPIXMAP_H

#include <QPixmap>

class DBManager;
class DBRecord;

// The picture of a card entry for lists and combo boxes: the card's icon, with the lock
// drawn over its top left corner when the card has a password, and greyed when the card
// file is not available.
QPixmap cardPixmap(const DBManager *manager, const DBRecord *record);

#endif
