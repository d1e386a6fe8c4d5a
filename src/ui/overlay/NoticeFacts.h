#pragma once

#include <QObject>
#include <QStringList>
#include <qqmlregistration.h>

class GuideOverlay;
class Translator;

/// What the small window over a game says: a notice, or when there is none the hint about the controller.
class NoticeFacts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the overlay")
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QString detail READ detail NOTIFY changed)
    Q_PROPERTY(QString icon READ icon NOTIFY changed)
    Q_PROPERTY(QString kind READ kind NOTIFY changed)
    Q_PROPERTY(QStringList glyphs READ glyphs NOTIFY changed)
    Q_PROPERTY(QStringList detailGlyphs READ detailGlyphs NOTIFY changed)
    Q_PROPERTY(bool busy READ busy NOTIFY changed)
public:
    NoticeFacts(GuideOverlay &guide, const Translator &translator, QObject *parent = nullptr);

    bool isVisible() const;
    bool isClickable() const; ///< the pointer reaches it; otherwise it reaches the game
    QString text() const;
    QString detail() const; ///< "%@" stands where the glyphs of the second line go
    QString icon() const;
    QString kind() const;
    QStringList glyphs() const;
    QStringList detailGlyphs() const;
    bool busy() const;
    Q_INVOKABLE void click();

signals:
    void changed();

private:
    GuideOverlay &m_guide;
    const Translator &m_translator;
};
