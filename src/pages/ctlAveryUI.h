#pragma once

#include "pages/WebSettingsFrame.h"

class ctlAveryPage1;

// The frame of an Avery label printer: its page of counters and buttons, and its own web
// page for settings.
class ctlAveryUI : public WebSettingsFrame
{
    Q_OBJECT

public:
    explicit ctlAveryUI(QWidget* parent = nullptr);

private:
    explicit ctlAveryUI(ctlAveryPage1* averyPage, QWidget* parent);
    void setupPages(const QString& sName, ComponentHandler& handler) override;
    // The Avery page follows the handler by itself.
    void refreshGeneralPage(ComponentHandler&) override {}

    ctlAveryPage1* m_averyPage;
};
