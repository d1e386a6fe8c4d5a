#include "app/AppLanguage.h"

using namespace Qt::StringLiterals;

const QList<AppLanguage> &appLanguages()
{
    static const QList<AppLanguage> languages{AppLanguage::english, AppLanguage::french,  AppLanguage::italian,
                                              AppLanguage::german,  AppLanguage::spanish, AppLanguage::portuguese};
    return languages;
}

QString code(AppLanguage language)
{
    switch (language) {
    case AppLanguage::english:
        return u"en"_s;
    case AppLanguage::french:
        return u"fr"_s;
    case AppLanguage::italian:
        return u"it"_s;
    case AppLanguage::german:
        return u"de"_s;
    case AppLanguage::spanish:
        return u"es"_s;
    case AppLanguage::portuguese:
        return u"pt-BR"_s;
    }
    return {};
}

QString nativeName(AppLanguage language)
{
    switch (language) {
    case AppLanguage::english:
        return u"English"_s;
    case AppLanguage::french:
        return u"Français"_s;
    case AppLanguage::italian:
        return u"Italiano"_s;
    case AppLanguage::german:
        return u"Deutsch"_s;
    case AppLanguage::spanish:
        return u"Español"_s;
    case AppLanguage::portuguese:
        return u"Português (Brasil)"_s;
    }
    return {};
}

AppLanguage chooseLanguage(const QString &stored, const QStringList &preferred)
{
    for (const AppLanguage language : appLanguages()) {
        if (code(language) == stored) return language;
    }
    for (const QString &wanted : preferred) {
        for (const AppLanguage language : appLanguages()) {
            if (wanted.toLower().startsWith(code(language).left(2))) return language;
        }
    }
    return AppLanguage::english;
}
