#pragma once

#include <QString>

/// The text in double quotes, with escapes that both TOML and YAML know.
QString inDoubleQuotes(const QString &text);
