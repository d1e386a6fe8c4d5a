#pragma once

#include <QObject>
#include <QPointF>
#include <QString>
#include <functional>
#include <qqmlregistration.h>

class QWindow;

/// What the user drives a window with right now: focus marks come with the first key and go with the first movement of
/// the pointer.
class InputMode : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("one for each window")
    Q_PROPERTY(QString name READ name NOTIFY changed)
public:
    explicit InputMode(QWindow *window);

    QString name() const { return m_name; } ///< "pointer", "keyboard" or "pad"
    void set(const QString &name);
    void asPad(const std::function<void()> &act); ///< the keys that `act` presses are the controller's

signals:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString m_name = QStringLiteral("pointer");
    QPointF m_pointer{-1, -1};
    bool m_padActs = false;
};
