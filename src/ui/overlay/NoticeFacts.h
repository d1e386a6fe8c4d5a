#pragma once

#include <QObject>
#include <QStringList>
#include <qqmlregistration.h>

class GuideOverlay;
class Translator;

/// What the small window over a game says: a notice, or when there is none the hint about the controller. What was said
/// last stays while the window goes.
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
    QString text() const { return m_said.text; }
    QString detail() const { return m_said.detail; } ///< "%@" stands where the glyphs of the second line go
    QString icon() const { return m_said.icon; }
    QString kind() const { return m_said.kind; }
    QStringList glyphs() const { return m_said.glyphs; }
    QStringList detailGlyphs() const { return m_said.detailGlyphs; }
    bool busy() const { return m_said.busy && isVisible(); } ///< nothing moves in a window that has gone
    Q_INVOKABLE void click();

signals:
    void changed(); ///< also whether it is visible

private:
    struct Said {
        QString text, detail, icon, kind;
        QStringList glyphs, detailGlyphs;
        bool busy = false;
        bool operator==(const Said &) const = default;
    };
    void update();
    Said notice() const;
    Said hint() const;

    GuideOverlay &m_guide;
    const Translator &m_translator;
    Said m_said;
};
