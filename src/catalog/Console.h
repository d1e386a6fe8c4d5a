#pragma once

#include "base/Host.h"
#include "catalog/BiosReq.h"
#include "catalog/Engine.h"
#include "catalog/Maker.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

/// One game system. `id` is the vocabulary of `GameEntry::consoleID`.
struct Console {
    QString id;
    QString name;
    QString shortName; ///< for badges and tiles
    Maker maker = Maker::other;
    int year = 0;
    bool handheld = false;
    Engine engine = Engine::emulator;
    QStringList extensions; ///< lower case, without dot; not unique among consoles
    QStringList emulators; ///< `EmulatorDef` identifiers, the preferred one first
    std::optional<BiosReq> bios;
    std::optional<QString> note; ///< a sentence for the console's page, in English
};

/// The catalog in its stored order: ascending year. Built once for each host and never changed. On Linux, retroarch
/// stands in openemu's place and system files go to the folders of the Linux emulators.
const QList<Console> &consoles(Host host);

/// Nothing for an unknown identifier; lives as long as the program.
const Console *consoleWithID(const QString &id, Host host);
