#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

/// The outline of a TOML text: where its tables and keys stand.
struct TomlScan {
    struct Table {
        QStringList path;
        qsizetype start = 0; ///< of its line
        bool ofArray = false; ///< [[…]]
    };
    struct Key {
        QStringList path; ///< with its table's
        QStringList table; ///< the table under whose header it stands; empty: before the first one
        qsizetype start = 0;
        qsizetype valueStart = 0;
        qsizetype valueEnd = 0;
        bool isInline = false; ///< within an inline table
    };
    QList<Table> tables;
    QList<Key> keys;
    bool broken = false; ///< something was not TOML and has been left out
};

TomlScan scanToml(const QByteArray &text);
