#pragma once

#include <QQuickView>

/// A window above everything, unknown to the window manager: the game keeps the keyboard and stays full screen.
constexpr Qt::WindowFlags overGame = Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint
    | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus;

/// What sizes are multiplied by on a display; the same as in the theme.
double overlayScale(const QSize &display);

/// Fills the window with a file of qml/overlay/.
void loadOverlay(QQuickView &view, const QString &name, const QVariantMap &properties);
