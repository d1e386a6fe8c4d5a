#pragma once

#include "platform/Clock.h"

#include <QObject>
#include <qqmlregistration.h>

/// The short message at the bottom of a window: one at a time, a new one takes the place of the old. Goes by itself
/// after 3 s, a long one after 6 s.
class Notices : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one for each window")
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QString icon READ icon NOTIFY changed)
    Q_PROPERTY(QString kind READ kind NOTIFY changed)
public:
    explicit Notices(Clock &clock, QObject *parent = nullptr) : QObject(parent), m_clock(clock) { }

    QString text() const { return m_text; } ///< translated; empty: none
    QString icon() const { return m_icon; }
    QString kind() const { return m_kind; } ///< "ok", "warn" or "info"

    Q_INVOKABLE void show(const QString &text, const QString &kind);

signals:
    void changed();

private:
    Clock &m_clock;
    Timer m_end;
    QString m_text;
    QString m_icon;
    QString m_kind;
};
