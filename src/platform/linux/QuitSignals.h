#pragma once

#include <QObject>
#include <memory>

/// Turns SIGTERM, SIGINT and SIGHUP into one orderly `QCoreApplication::quit()`, so that sessions are counted and the
/// library is saved. Make it before any thread starts; programs that Velko starts get their signals unblocked.
std::unique_ptr<QObject> quitOnSignals();
