#include "emulators/settings/ConfigEdit.h"

#include "base/IniText.h"
#include "base/TomlText.h"
#include "base/XmlText.h"
#include "base/YamlText.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

static const std::array<std::pair<ConfigFormat, QString>, 5> &formatNames()
{
    static const std::array<std::pair<ConfigFormat, QString>, 5> names{{{ConfigFormat::ini, u"ini"_s},
                                                                        {ConfigFormat::tightIni, u"tightIni"_s},
                                                                        {ConfigFormat::toml, u"toml"_s},
                                                                        {ConfigFormat::yaml, u"yaml"_s},
                                                                        {ConfigFormat::xml, u"xml"_s}}};
    return names;
}

QString name(ConfigFormat format)
{
    for (const auto &[each, text] : formatNames()) {
        if (each == format) return text;
    }
    return {};
}

std::optional<ConfigFormat> configFormatNamed(const QString &name)
{
    for (const auto &[each, text] : formatNames()) {
        if (text == name) return each;
    }
    return {};
}

QStringList configValues(const QByteArray &text, ConfigFormat format, const QStringList &section, const QString &key)
{
    switch (format) {
    case ConfigFormat::ini:
    case ConfigFormat::tightIni:
        return iniValues(text, section.value(0), key);
    case ConfigFormat::toml:
        return tomlValues(text, section, key);
    case ConfigFormat::yaml:
        return yamlValues(text, section + QStringList{key});
    case ConfigFormat::xml:
        return xmlValues(text, section + QStringList{key});
    }
    return {};
}

std::optional<QByteArray> withConfigValues(const QByteArray &text, ConfigFormat format, const QStringList &section,
                                           const QString &key, const QStringList &values)
{
    switch (format) {
    case ConfigFormat::ini:
        return editIni(text, section.value(0), key, values);
    case ConfigFormat::tightIni:
        return editIni(text, section.value(0), key, values, u"="_s);
    case ConfigFormat::toml:
        return editToml(text, section, key, values);
    case ConfigFormat::yaml:
        return editYaml(text, section + QStringList{key}, values);
    case ConfigFormat::xml:
        return editXml(text, section + QStringList{key}, values);
    }
    return {};
}
