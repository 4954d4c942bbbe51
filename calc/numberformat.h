#ifndef NUMBERFORMAT_H
#define NUMBERFORMAT_H

#include <QString>

// The text of a number by a number format code such as "#,##0.00", "$0.00" or "+?.??".
// The code is a prefix, a pattern of "0", "#", "?" and "." and a suffix; a "+" or "-" in
// the prefix marks where the sign goes. An empty code gives the number with six
// significant digits.
QString formatNumber(double value, const QString &code);

#endif
