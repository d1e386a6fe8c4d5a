#pragma once

#include <QMetaMethod>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

/// What a controller's buttons do while the focus is inside an item, beside the keys that they stand for. The texts are
/// what the hint bar says about them; a button without one may work all the same.
class PadSurface : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Pad)
    QML_ATTACHED(PadSurface)
    QML_UNCREATABLE("attached to items")
    Q_PROPERTY(QString confirm MEMBER confirm NOTIFY changed) ///< the Return key; of this item alone
    Q_PROPERTY(QString back MEMBER back NOTIFY changed) ///< the Back key, else the Escape key
    Q_PROPERTY(QString favorite MEMBER favorite NOTIFY changed)
    Q_PROPERTY(QString details MEMBER details NOTIFY changed)
    Q_PROPERTY(QString tabs MEMBER tabs NOTIFY changed)
    Q_PROPERTY(QString games MEMBER games NOTIFY changed)
    Q_PROPERTY(QString menu MEMBER menu NOTIFY changed)
public:
    using QObject::QObject;
    static PadSurface *qmlAttachedProperties(QObject *item) { return new PadSurface(item); }
    static PadSurface *of(QObject *item); ///< null: nothing is said about it
    bool hears(const QMetaMethod &signal) const { return isSignalConnected(signal); }

    QString confirm, back, favorite, details, tabs, games, menu;

signals:
    void changed();
    void favoritePressed();
    void detailsPressed();
    void tabPressed(int by); ///< -1: the one before, 1: the next; so for games
    void gamePressed(int by);
    void menuPressed();
};
