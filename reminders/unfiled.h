#ifndef UNFILED_H
#define UNFILED_H

#include <QString>

// The word that names the absence of a category: as it stands, for stores and matching,
// or translated, for the user.
QString unfiled(bool translated = false);

#endif
