#pragma once

#include "pages/PrinterFrame.h"

#include <optional>

class SettingsWebLink;

// The frame of a label printer: one page of its own, and a settings tab that shows the
// printer's own web page, loaded the first time the tab is shown. The frame is never made
// smaller than its minimum, whatever the pane asks.
class WebSettingsFrame : public PrinterFrame
{
    Q_OBJECT

public:
    std::optional<bool> DoResize(qint16 nWidth, qint16 nHeight) override;

protected:
    WebSettingsFrame(QWidget* page, const Tab& pageTab, const QString& settingsCaption,
                     QSize minimumTwips, QWidget* parent);

    QWidget* pageForTag(const QString& tag) override;

private:
    QWidget* m_page;
    QString m_pageKey;
    SettingsWebLink* m_ctlSettingsWebBrowser;
    QSize m_minimumTwips;
};
