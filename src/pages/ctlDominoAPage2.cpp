#include "pages/ctlDominoAPage2.h"

namespace {
constexpr qint32 MsgCommandTesting = 279;
constexpr qint32 MsgStart = 280;
} // namespace

ctlDominoAPage2::ctlDominoAPage2(QWidget* parent)
    : CommandTestPage({"fraCmdTesting", MsgCommandTesting, QStringLiteral("command testing")},
                      {"cmdTesting", MsgStart, QStringLiteral("start")}, "cmdTesting_Click", parent)
{}
