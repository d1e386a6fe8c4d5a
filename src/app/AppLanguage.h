#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// Languages of the interface, in the order of the picker.
enum class AppLanguage { english, french, italian, german, spanish, portuguese };

const QList<AppLanguage> &appLanguages();
QString code(AppLanguage language); ///< "en", "fr", "it", "de", "es", "pt-BR": how the preference holds it
QString nativeName(AppLanguage language); ///< "Français"

/// The stored choice if it is one of the codes; else the first of the system's preferred languages that begins with
/// the first two letters of a code; else English.
AppLanguage chooseLanguage(const QString &stored, const QStringList &preferred);
