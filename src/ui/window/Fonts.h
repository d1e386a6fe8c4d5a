#pragma once

class Tasks;

/// Names what stands in for the families of the texts where they are not installed. The first call counts; it comes
/// before any text is laid out.
void nameFontSubstitutes();

/// Reading what is installed takes long where there are thousands of fonts. Begun in the background before the pages are
/// built, it is done or nearly done when the first text is laid out. Names the substitutes as well. Needs a QGuiApplication.
void readFonts(Tasks &tasks);
