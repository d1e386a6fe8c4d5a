#pragma once

#include <QString>

/// Whether this machine has a graphics card that programs may use: `folder` is /dev/dri.
bool hasGraphicsCard(const QString &folder);

/// Draws on the processor when there is no graphics card, which is four times faster there than imitating one. The
/// variable QT_QUICK_BACKEND decides otherwise. Before the first window.
void chooseRenderer();
