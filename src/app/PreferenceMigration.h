#pragma once

struct Places;
class Preferences;

/// Once in the life of an installation, takes over the preferences that were stored under the earlier identity. A key
/// that is already set keeps its value. A missing or broken older file takes over nothing, and is not tried again.
void migrateLegacyPreferences(const Places &places, Preferences &preferences);
