#include "pages/ctlLBXPrinterUI.h"

namespace {
constexpr qint32 MsgGeneralTab = 112;
} // namespace

ctlLBXPrinterUI::ctlLBXPrinterUI(QWidget* parent)
    : PrinterFrame({.controlName = QStringLiteral("ctlLBXPrinterUI"),
                    .generalCaptionId = MsgGeneralTab,
                    .settingsCaption = QStringLiteral("Settings"),
                    .minimumSize = QSize(7000, 4500),
                    .timeoutMessage = {}},
                   parent)
{}
