#pragma once

#include "emulators/settings/SettingsSupport.h"
#include "library/LibraryStore.h"

#include <QObject>
#include <QVariantList>
#include <qqmlregistration.h>

struct Console;
class FramePatches;
class InstalledEmulators;
class Translator;

/// How one game is to be played, and what its emulator makes of it, in the user's words. Each change is saved at once.
/// Where something can't be chosen, its text says why. Everything that it is given outlives it.
class GameOptions : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("part of a game's facts")
    Q_PROPERTY(QString engine READ engine NOTIFY changed)
    Q_PROPERTY(bool native READ native NOTIFY changed)
    Q_PROPERTY(bool qualityOffered READ qualityOffered NOTIFY changed)
    Q_PROPERTY(QString quality READ quality WRITE setQuality NOTIFY changed)
    Q_PROPERTY(QString qualityText READ qualityText NOTIFY changed)
    Q_PROPERTY(QVariantList qualityChoices READ qualityChoices NOTIFY changed)
    Q_PROPERTY(bool fps60 READ fps60 WRITE setFps60 NOTIFY changed)
    Q_PROPERTY(bool fps60Offered READ fps60Offered NOTIFY changed)
    Q_PROPERTY(QString fps60Title READ fps60Title NOTIFY changed)
    Q_PROPERTY(QString fps60Text READ fps60Text NOTIFY changed)
    Q_PROPERTY(bool downloadingPatches READ downloadingPatches NOTIFY changed)
    Q_PROPERTY(bool widescreen READ widescreen WRITE setWidescreen NOTIFY changed)
    Q_PROPERTY(bool widescreenOffered READ widescreenOffered NOTIFY changed)
    Q_PROPERTY(QString widescreenText READ widescreenText NOTIFY changed)
    Q_PROPERTY(bool showFPS READ showFPS WRITE setShowFPS NOTIFY changed)
    Q_PROPERTY(bool showFPSOffered READ showFPSOffered NOTIFY changed)
    Q_PROPERTY(QString showFPSText READ showFPSText NOTIFY changed)
    Q_PROPERTY(bool fullScreen READ fullScreen WRITE setFullScreen NOTIFY changed)
public:
    GameOptions(LibraryStore &library, const InstalledEmulators &emulators, const Preferences &preferences,
                const Translator &translator, Host host, QObject *parent = nullptr);

    void setGameID(const QString &id);
    void setPatches(FramePatches *patches); ///< what is said about 60 FPS then tells of them; they outlive this

    QString engine() const; ///< the emulator that plays it, or would; "nxnative" and "native": it plays itself
    bool native() const; ///< the game is itself a program
    bool qualityOffered() const;
    QString quality() const; ///< "minimum", "medium" or "maximum"
    QString qualityText() const; ///< "About 1080p", or why there is no choice
    QVariantList qualityChoices() const; ///< value and text of each
    bool fps60() const;
    bool fps60Offered() const;
    QString fps60Title() const;
    QString fps60Text() const;
    bool downloadingPatches() const; ///< the list in which this game's patch is looked up
    bool widescreen() const;
    bool widescreenOffered() const;
    QString widescreenText() const;
    bool showFPS() const;
    bool showFPSOffered() const;
    QString showFPSText() const;
    bool fullScreen() const;

    void setQuality(const QString &name); ///< an unknown name is ignored
    void setFps60(bool on);
    void setWidescreen(bool on);
    void setShowFPS(bool on);
    void setFullScreen(bool on);
    Q_INVOKABLE void cancelDownload(); ///< of the list of patches; 60 FPS stays chosen

signals:
    void changed();

private:
    const GameEntry *entry() const { return m_library.game(m_gameID); }
    const Console *console() const;
    QualityPreset preset() const;
    GameSettings settings() const;
    SettingsSupport support() const;
    QString notAvailable() const;
    void lookForPatch();
    QString patchText() const;

    LibraryStore &m_library;
    const InstalledEmulators &m_emulators;
    const Preferences &m_preferences;
    const Translator &m_translator;
    const Host m_host;
    FramePatches *m_patches = nullptr;
    QString m_gameID;
};
