#pragma once

#include "pages/PrinterFrame.h"

// The frame of a local label printer: its general page, and its own web page for settings.
class ctlLBXPrinterUI : public PrinterFrame
{
    Q_OBJECT

public:
    explicit ctlLBXPrinterUI(QWidget* parent = nullptr);
};
