#include "pages/ctlDominoCPage5.h"

namespace {
constexpr qint32 MsgCommandTesting = 222;
constexpr qint32 MsgStart = 223;
} // namespace

ctlDominoCPage5::ctlDominoCPage5(QWidget* parent)
    : CommandTestPage({"fraCommandTest", MsgCommandTesting, QStringLiteral("command testing")},
                      {"cmdTest", MsgStart, QStringLiteral("start...")}, "cmdTest_Click", parent)
{}
