#pragma once

#include "platform/Places.h"
#include "platform/Workspace.h"

/// How a copy of an emulator came onto the machine, in English.
QString copyText(ApplicationKind kind);

/// A path as people read it: "~/Games" below the home folder.
QString fromHome(const QString &path, const Places &places);
