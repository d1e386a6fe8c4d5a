#pragma once

#include "platform/Accessibility.h"
#include "platform/Clock.h"
#include "platform/FileIndex.h"
#include "platform/Gamepads.h"
#include "platform/HotKey.h"
#include "platform/Http.h"
#include "platform/Keys.h"
#include "platform/LocalSockets.h"
#include "platform/Places.h"
#include "platform/ProcessControl.h"
#include "platform/RequestChannel.h"
#include "platform/ScreenCapture.h"
#include "platform/Tasks.h"
#include "platform/Trash.h"
#include "platform/Windows.h"
#include "platform/Workspace.h"

#include <memory>

/// What Linux does for us. Each function makes a new service; main.cpp makes one of each and hands them on.
std::unique_ptr<Clock> makeClock();

/// At least four pieces of work run at the same time. Destroying it waits for the work that runs, drops what has not
/// begun, and lets no result arrive any more.
std::unique_ptr<Tasks> makeTasks();

/// What programs print is kept by `velko-session-log`, a program beside ours or in "../lib/velko" of its folder;
/// without it nothing is kept. It may write a moment longer than the program ran: read the log slightly later, or
/// again. Programs go on when the workspace is destroyed. Needs a running event loop to notice ends.
std::unique_ptr<Workspace> makeWorkspace(const Places &places);

/// Never touches process 1 or Velko itself, and stops no sound or display server. What it has stopped goes on when it
/// is destroyed, and also when Velko dies: `velko-freeze-guard`, a program beside ours or in "../lib/velko" of its
/// folder, sees to that. It is started with the first freeze.
std::unique_ptr<ProcessControl> makeProcessControl();

/// Asks plocate (its own database, unless another is given), then walks. Without plocate nothing begins with anything.
std::unique_ptr<FileIndex> makeFileIndex(const Places &places, const QString &database = {});

/// A lock and a socket in "velko" below the runtime folder, open to this user only. An owner that gives no sign of life
/// for `patience` is lost; one that is just starting is waited for. A request is at most 1 MiB long; a longer one is
/// lost, too.
std::unique_ptr<RequestChannel> makeRequestChannel(const Places &places,
                                                   std::chrono::milliseconds patience = std::chrono::seconds(10));

/// The trash of the desktop, on the disk of the file.
std::unique_ptr<Trash> makeTrash();

std::unique_ptr<LocalSockets> makeLocalSockets();

/// On X11, or on XWayland for what runs through it. Connects at once, in a millisecond; `display` is one other than
/// that of the environment.
std::unique_ptr<Windows> makeWindows(const QByteArray &display = {});

/// On X11 and XWayland. Connects when first used. A key that is still held is released for the stroke.
std::unique_ptr<Keys> makeKeys(const QByteArray &display = {});

/// On X11; on XWayland it reaches us while an X11 window has the keyboard, as a game's. Connects when first used.
std::unique_ptr<HotKey> makeHotKey(const QByteArray &display = {});

/// On X11; on XWayland single windows only. Connects when first used.
std::unique_ptr<ScreenCapture> makeScreenCapture(const QByteArray &display = {});

/// Over the accessibility bus (AT-SPI), whose address the session bus knows; `sessionBus` is one other than that of the
/// environment. A program that does not answer costs half a second in the background, a question three seconds at most.
/// The tasks outlive it, or go together with it.
std::unique_ptr<Accessibility> makeAccessibility(Tasks &tasks, const QString &sessionBus = {});

/// Through SDL, without its video and its signal handlers. Costs nothing while no controller is connected or none is
/// touched. The clock outlives it.
std::unique_ptr<Gamepads> makeGamepads(Clock &clock, const QString &deviceFolder = QStringLiteral("/dev/input"));

/// Opens nothing before the first request. Needs a running event loop. The clock outlives it.
std::unique_ptr<Http> makeHttp(Clock &clock);
