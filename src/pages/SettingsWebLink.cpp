#include "pages/SettingsWebLink.h"

#include <QDesktopServices>

SettingsWebLink::SettingsWebLink(QWidget* parent)
    : QLabel(parent)
    , m_opener([](const QUrl& url) { return QDesktopServices::openUrl(url); })
{
    setTextFormat(Qt::RichText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMargin(8);
    setTextInteractionFlags(Qt::TextBrowserInteraction);
    connect(this, &QLabel::linkActivated, this, &SettingsWebLink::openLink);
}

bool SettingsWebLink::isBlank() const
{
    return m_location.isEmpty() || m_location == QLatin1String("http:///");
}

void SettingsWebLink::navigate(const QString& location)
{
    m_location = location;
    setText(url().isValid() ? linkText({}) : location.toHtmlEscaped());
}

QString SettingsWebLink::linkText(const QString& note) const
{
    const QUrl target = url();
    QString text = QStringLiteral("<a href=\"%1\">%2</a>")
                       .arg(QString::fromUtf8(target.toEncoded()).toHtmlEscaped(),
                            target.toDisplayString().toHtmlEscaped());
    if (!note.isEmpty())
        text += QStringLiteral("<p>%1</p>").arg(note.toHtmlEscaped());
    return text;
}

void SettingsWebLink::openLink()
{
    const QUrl target = url();
    if (!target.isValid() || m_opener(target))
        return;
    setText(linkText(QStringLiteral("No web browser could be opened on this workstation. "
                                    "The printer's settings page is at %1: open that address "
                                    "in a browser on a computer of the same network.")
                         .arg(target.toDisplayString())));
}

// Browsers read "http:\\host" as "http://host/"; so does the link.
QUrl SettingsWebLink::url() const
{
    QUrl target(QString(m_location).replace(QLatin1Char('\\'), QLatin1Char('/')), QUrl::StrictMode);
    if (!target.isValid() || target.host().isEmpty())
        return {};
    if (target.path().isEmpty())
        target.setPath(QStringLiteral("/"));
    return target;
}
