#include "pages/SettingsWebLink.h"

SettingsWebLink::SettingsWebLink(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::RichText);
    setOpenExternalLinks(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setMargin(8);
}

bool SettingsWebLink::isBlank() const
{
    return m_location.isEmpty() || m_location == QLatin1String("http:///");
}

void SettingsWebLink::navigate(const QString& location)
{
    m_location = location;
    const QUrl target = url();
    if (!target.isValid()) {
        setText(location.toHtmlEscaped());
        return;
    }
    setText(QStringLiteral("<a href=\"%1\">%2</a>")
                .arg(QString::fromUtf8(target.toEncoded()).toHtmlEscaped(),
                     target.toDisplayString().toHtmlEscaped()));
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
