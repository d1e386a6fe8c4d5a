#include "library/ScanReport.h"

using namespace Qt::StringLiterals;

Message scanReport(const ScanFindings &findings, int added)
{
    const QString number = QString::number(added);
    if (findings.cancelled) return {u"Scan stopped. Games added: %ld."_s, {number}};
    if (!findings.unopened.isEmpty()) {
        return {u"Games added: %ld. “%@” can't be opened: check that it is still there and that you may read it."_s,
                {number, findings.unopened.first()}};
    }
    if (!findings.cutShort.isEmpty()) {
        return {
            u"Games added: %ld. Only the first %ld entries of “%@” were looked at: add its sub-folders one by one."_s,
            {number, QString::number(RomScanner::entriesPerFolder), findings.cutShort.first()}};
    }
    if (findings.unnamable > 0) {
        return {u"Games added: %ld. Games left out because their file names aren't valid text: %ld, such as “%@”. "
                "Rename them and scan again."_s,
                {number, QString::number(findings.unnamable), findings.firstUnnamable}};
    }
    if (findings.unsettled > 0) {
        return {u"Games added: %ld. Files whose console isn't clear: %ld. Put them into a folder named after their "
                "console, such as “PlayStation 2”, and scan again."_s,
                {number, QString::number(findings.unsettled)}};
    }
    if (added == 0) return {u"No new games found."_s, {}};
    if (added == 1) return {u"1 game added."_s, {}};
    return {u"%ld games added."_s, {number}};
}
