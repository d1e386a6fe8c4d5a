#pragma once

#include <QString>

/// The drawing in icons/ for a symbol's name; empty for none.
QString symbolIcon(const QString &symbol);

/// What a notice with this symbol tells: "ok" done, "warn" trouble, "quiet" called off, "plain" anything else. Decides
/// the symbol's colour.
QString symbolKind(const QString &symbol);
