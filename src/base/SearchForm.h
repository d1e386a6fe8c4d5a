#pragma once

#include <QString>

/// The form in which titles and names are compared: compatibility-decomposed, marks removed, case folded, everything
/// that is not a letter or digit turned into a blank, runs of blanks collapsed, no blank at either end.
QString searchForm(const QString &text);
