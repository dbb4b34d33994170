#include "platform/qt/HelpWindow.h"

#include "platform/qt/AddInWindow.h"
#include "services/ErrorBox.h"

#include <QFileInfo>
#include <QPointer>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace {
constexpr QSize InitialSize(720, 560);
}

HelpWindow::HelpWindow(QWidget* owner)
    : QWidget(owner, Qt::Window)
    , m_browser(new QTextBrowser(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    m_browser->setOpenExternalLinks(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_browser);
    resize(InitialSize);
    connect(m_browser, &QTextBrowser::sourceChanged, this, [this](const QUrl& source) {
        const QString title = m_browser->documentTitle();
        setWindowTitle(title.isEmpty() ? source.fileName() : title);
    });
}

HelpWindow* HelpWindow::showFile(const QString& path)
{
    const QFileInfo file(path);
    if (!file.isFile() || !file.isReadable()) {
        ShowError(QStringLiteral("The help file can't be opened:\n%1").arg(path),
                  QStringLiteral("HelpWindow - showFile"));
        return nullptr;
    }
    static QPointer<HelpWindow> window;
    if (!window)
        window = new HelpWindow(AddInWindow());
    window->m_browser->setSource(QUrl::fromLocalFile(file.absoluteFilePath()));
    window->showNormal();
    window->raise();
    window->activateWindow();
    return window;
}
