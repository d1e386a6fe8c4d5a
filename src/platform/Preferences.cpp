#include "platform/Preferences.h"

#include <QFile>

Preferences::Preferences(const QString &file, QObject *parent) : QObject(parent), m_settings(file, QSettings::IniFormat)
{ }

void Preferences::setValue(const QString &key, const QVariant &value)
{
    if (m_settings.value(key) == value && m_settings.contains(key) == value.isValid()) return;
    if (value.isValid())
        m_settings.setValue(key, value);
    else
        m_settings.remove(key);
    m_settings.sync();
    emit changed(key);
}

void Preferences::adoptFrom(const QString &file)
{
    if (!QFile::exists(file)) return;
    const QSettings other(file, QSettings::IniFormat);
    for (const QString &key : other.allKeys()) {
        if (!m_settings.contains(key)) setValue(key, other.value(key));
    }
}
