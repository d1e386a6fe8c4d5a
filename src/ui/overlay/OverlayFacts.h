#pragma once

#include "play/overlay/GuideOverlay.h"
#include "ui/overlay/OverlayRows.h"

#include <QObject>
#include <QSize>
#include <qqmlregistration.h>

class Translator;
struct GameEntry;

/// What the panel over a game and the curtain show, in the user's words, and what can be done there. What the panel
/// showed last stays while it goes.
class OverlayFacts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the overlay")
    Q_PROPERTY(QSize display READ display NOTIFY displayChanged)
    Q_PROPERTY(bool open READ isOpen NOTIFY panelChanged)
    Q_PROPERTY(QString picture READ picture NOTIFY pictureChanged)
    Q_PROPERTY(QString title READ title NOTIFY gameChanged)
    Q_PROPERTY(QString cover READ cover NOTIFY gameChanged)
    Q_PROPERTY(QString consoleID READ consoleID NOTIFY gameChanged)
    Q_PROPERTY(qreal ratio READ ratio NOTIFY gameChanged)
    Q_PROPERTY(QStringList origin READ origin NOTIFY panelChanged)
    Q_PROPERTY(QString page READ page NOTIFY changed)
    Q_PROPERTY(QString heading READ heading NOTIFY changed)
    Q_PROPERTY(QString explanation READ explanation NOTIFY changed)
    Q_PROPERTY(OverlayRows *rows READ rows CONSTANT)
    Q_PROPERTY(int selection READ selection NOTIFY changed)
    Q_PROPERTY(bool selectedActs READ selectedActs NOTIFY changed)
    Q_PROPERTY(bool selectedChanges READ selectedChanges NOTIFY changed)
    Q_PROPERTY(QStringList steps READ steps NOTIFY changed)
    Q_PROPERTY(bool quitting READ quitting NOTIFY changed)
    Q_PROPERTY(QString toast READ toast NOTIFY changed)
    Q_PROPERTY(QString toastIcon READ toastIcon NOTIFY changed)
    Q_PROPERTY(QString toastKind READ toastKind NOTIFY changed)
public:
    OverlayFacts(GuideOverlay &guide, const LibraryStore &library, const Translator &translator, Host host,
                 QObject *parent = nullptr);

    QSize display() const { return m_display; } ///< of the game; everything over it is scaled by its size
    void setDisplay(const QSize &size);
    bool isOpen() const { return m_guide.isOpen(); }
    QString picture() const { return m_picture; } ///< address of the game's picture; empty: there is none
    void forgetPicture();
    QString title() const { return m_game.title; }
    QString cover() const; ///< what stands behind "image://cover/"
    QString consoleID() const;
    qreal ratio() const; ///< of the cover: height by width
    QStringList origin() const; ///< console, emulator, time of this session
    QString page() const;
    QString heading() const; ///< of a page that is not the menu
    QString explanation() const; ///< below it
    OverlayRows *rows() { return &m_rows; }
    int selection() const;
    bool selectedActs() const; ///< whether pressing the selected row does something
    bool selectedChanges() const; ///< whether it is a setting that can be changed
    QStringList steps() const; ///< of the controller page
    bool quitting() const { return m_quitting; }
    QString toast() const;
    QString toastIcon() const;
    QString toastKind() const;

    Q_INVOKABLE bool pressKey(int key); ///< true when the key means something here
    Q_INVOKABLE void select(int row) { m_guide.select(row); }
    Q_INVOKABLE void choose(int row) { m_guide.choose(row); }
    Q_INVOKABLE void step(int row, int by) { m_guide.step(row, by); }
    Q_INVOKABLE void goBack() { m_guide.handle(PadEvent::back); }
    Q_INVOKABLE void cancelLaunch() { m_guide.cancelLaunch(); }

signals:
    void displayChanged();
    void panelChanged();
    void pictureChanged();
    void gameChanged();
    void changed();

private:
    const GameEntry *entry() const;
    QString translated(const Message &message) const;
    QList<OverlayRow> menuRows() const;
    QList<OverlayRow> settingRows() const;
    QList<OverlayRow> infoRows() const;
    OverlayRow row(GuideItem item) const;
    OverlayRow row(GuideSetting setting) const;
    void refresh();
    void sessionChanged();
    void panelToggled();

    GuideOverlay &m_guide;
    const LibraryStore &m_library;
    const Translator &m_translator;
    const Host m_host;
    OverlayRows m_rows;
    QSize m_display;
    RunningGame m_game; ///< of the session, or of the last one
    double m_playedBefore = 0; ///< seconds that the game had been played when this session began
    double m_played = 0; ///< seconds of this session, when the panel opened: the game stands still since
    bool m_quitting = false;
    QString m_picture;
    int m_pictureNumber = 0; ///< addresses are cached
};
