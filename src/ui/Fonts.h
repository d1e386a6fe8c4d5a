#pragma once

#include <QObject>
#include <qqmlregistration.h>

class QQmlEngine;
class Tasks;

/// The families that texts are set in: the first of a list that is installed, else the system's own.
class Fonts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QString text READ text CONSTANT)
    Q_PROPERTY(QString display READ display CONSTANT)
public:
    QString text() const; ///< for running text
    QString display() const; ///< for titles and large numbers
};

/// Reading what is installed takes long where there are thousands of fonts. Begun early and in the background, it is
/// done or nearly done when the first text is laid out. Needs a QGuiApplication.
void readFonts(Tasks &tasks);
