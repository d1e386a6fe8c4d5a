#pragma once

class Tasks;

/// Reading what fonts are installed takes long where there are thousands. Begun early and in the background, it is done
/// or nearly done when the first text is laid out. Needs a QGuiApplication.
void readFonts(Tasks &tasks);
