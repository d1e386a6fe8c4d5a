#pragma once

#include "platform/Places.h"
#include "platform/Workspace.h"

/// The applications of all desktop entries, as `Workspace::applications` promises them; within one folder by id.
/// Entries whose program is missing are left out.
QList<Application> installedApplications(const Places &places);
