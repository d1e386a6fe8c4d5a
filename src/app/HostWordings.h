#pragma once

#include "base/Host.h"

#include <QString>

/// The sentence that stands for `text` on this host; most texts stand for themselves.
QString hostWording(const QString &text, Host host);
