#pragma once

#include "ui/facts/PlayDays.h"

#include <QVariantList>

class Translator;

QLocale localeOf(const Translator &translator); ///< for dates and numbers in the interface's language

/// For the chart `Bars`: each day with its short label, its full name, its time as text, its share and whether it is
/// today.
QVariantList playDayBars(const QList<PlayDay> &days, QDate today, const Translator &translator);
