#pragma once

#include <QWidget>

class QTextBrowser;

// The help viewer: one window a process, beside the control and not in its way.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    // Shows the help file in the one window, brought to the front; a file that can't be read
    // is named in an error box and no window opens. Answers the window, or none.
    static HelpWindow* showFile(const QString& path);

    QTextBrowser& browser() { return *m_browser; }

private:
    explicit HelpWindow(QWidget* owner);

    QTextBrowser* m_browser;
};
