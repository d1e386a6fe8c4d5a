#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

/// How another program's settings file is written.
enum class ConfigFormat {
    ini, ///< "key = value"
    tightIni, ///< "key=value"
    toml,
    yaml,
    xml,
};
QString name(ConfigFormat format);
std::optional<ConfigFormat> configFormatNamed(const QString &name);

/// One key of a settings file. Values stand as in the file: quotes and escapes are part of them.
struct ConfigEdit {
    enum class How {
        set,
        atLeast, ///< a number: left alone when it is as large already
        withBits, ///< a number: these bits are set in it
        ifThere, ///< only where the key stands already
        ifEmpty, ///< only where the key stands without a value
        listed, ///< XML: one more element of that name, unless one with this value is there
        putBack, ///< what the user had before Velko changed it; nothing when the user has changed it since
    };
    QStringList section; ///< outermost first; INI has one name, or none for the keys before every section
    QString key;
    QString value;
    How how = How::set;
    bool operator==(const ConfigEdit &) const = default;
};

/// What is to be changed in one file. A file that does not exist stays so.
struct FileEdits {
    QString file;
    ConfigFormat format = ConfigFormat::ini;
    QList<ConfigEdit> edits;
    bool operator==(const FileEdits &) const = default;
};

/// The key's values, one for each place where it stands.
QStringList configValues(const QByteArray &text, ConfigFormat format, const QStringList &section, const QString &key);

/// The text with these values: one for each place, or one for all, or none to remove the key. Nothing when the text has
/// a form that cannot be edited.
std::optional<QByteArray> withConfigValues(const QByteArray &text, ConfigFormat format, const QStringList &section,
                                           const QString &key, const QStringList &values);
