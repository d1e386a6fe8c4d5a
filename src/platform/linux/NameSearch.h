#pragma once

#include "platform/Places.h"

#include <chrono>

/// Whether a path lies in a trash or a cache: what is found there is of no use to anybody.
bool isDiscarded(const QString &path, const Places &places);

/// A pattern for plocate in which every character of the text stands for itself.
QString literalPattern(const QString &text);

/// A pattern for plocate that only this whole name fits; the name is not empty.
QString exactPattern(const QString &name);

/// How much of the disk a search may look at.
struct SearchLimits {
    int entries = 500'000;
    int levels = 12; ///< below each folder; its own entries are the first
    std::chrono::milliseconds time = std::chrono::seconds(10);
};

/// Files and folders of exactly this name below the folders, nearest level first, each once. Links are found but not
/// followed; trash, caches and the kernel's own folders are not entered. What is found before a limit is kept.
QStringList searchFolders(const QString &name, const QStringList &folders, const Places &places,
                          const SearchLimits &limits = {});
