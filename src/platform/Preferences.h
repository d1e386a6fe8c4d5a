#pragma once

#include "platform/PreferenceKeys.h"

#include <QObject>
#include <QSettings>

/// The user's preferences in one INI file. Absent reads as false, zero, empty or an invalid date. Main thread only.
class Preferences : public QObject {
    Q_OBJECT
public:
    /// The file and its folder are created by the first change, not before.
    explicit Preferences(const QString &file, QObject *parent = nullptr);

    template <class T>
    T get(const PreferenceKey<T> &key) const
    {
        return m_settings.value(key.name).template value<T>();
    }
    template <class T>
    void set(const PreferenceKey<T> &key, const T &value)
    {
        setValue(key.name, QVariant::fromValue(value));
    }
    template <class T>
    void remove(const PreferenceKey<T> &key)
    {
        setValue(key.name, {});
    }
    template <class T>
    bool contains(const PreferenceKey<T> &key) const
    {
        return m_settings.contains(key.name);
    }

    /// Takes over every key of the file that is absent here; a missing file takes over nothing.
    void adoptFrom(const QString &file);

signals:
    void changed(const QString &key); ///< after the change is in the file

private:
    void setValue(const QString &key, const QVariant &value);

    QSettings m_settings;
};
