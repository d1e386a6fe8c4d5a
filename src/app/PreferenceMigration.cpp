#include "app/PreferenceMigration.h"

#include "platform/Places.h"
#include "platform/Preferences.h"

void migrateLegacyPreferences(const Places &places, Preferences &preferences)
{
    if (preferences.get(preference::migratedFromLegacyIdentifier)) return;
    preferences.adoptFrom(places.legacyPreferencesFile());
    preferences.set(preference::migratedFromLegacyIdentifier, true);
}
