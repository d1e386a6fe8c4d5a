#pragma once

#include "base/Message.h"
#include "library/RomScanner.h"

/// A scan in a sentence or two: how many games it brought, and the one remark that matters most.
Message scanReport(const ScanFindings &findings, int added);
