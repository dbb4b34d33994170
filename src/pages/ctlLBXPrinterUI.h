#pragma once

#include "pages/WebSettingsFrame.h"

class ctlGeneralPage;

// The frame of a local label printer: its general page, and its own web page for settings.
class ctlLBXPrinterUI : public WebSettingsFrame
{
    Q_OBJECT

public:
    explicit ctlLBXPrinterUI(QWidget* parent = nullptr);

private:
    explicit ctlLBXPrinterUI(ctlGeneralPage* generalPage, QWidget* parent);
    void setupPages(const QString&, ComponentHandler&) override {}
    void refreshGeneralPage(ComponentHandler& handler) override;

    ctlGeneralPage* m_generalPage;
};
