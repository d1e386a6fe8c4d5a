#pragma once

#include <QImage>

/// Whether the picture shows the demo game as large as its proportions allow: every band of its scene has its colours.
bool showsDemoGame(const QImage &screen);
