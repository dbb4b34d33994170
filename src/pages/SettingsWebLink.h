#pragma once

#include <QLabel>
#include <QUrl>
#include <functional>

// The settings tab's view of the printer's own web page. Without an embedded browser it
// shows a link that opens the page in the desktop's browser; "navigating" sets the link.
// Where no browser can be opened, it says so and leaves the address to be copied.
class SettingsWebLink : public QLabel
{
    Q_OBJECT

public:
    // Opens an address in a browser; false when none could be opened.
    using Opener = std::function<bool(const QUrl&)>;

    explicit SettingsWebLink(QWidget* parent = nullptr);

    // Where the view was sent, as it was given ("http:\\10.1.2.3"); empty until then.
    const QString& location() const { return m_location; }
    // Nothing has been loaded yet: no location, or the empty web address.
    bool isBlank() const;
    void navigate(const QString& location);
    // The address the link opens; invalid when the location names no host.
    QUrl url() const;
    // The desktop's browser by default.
    void setOpener(Opener opener) { m_opener = std::move(opener); }

private:
    void openLink();
    QString linkText(const QString& note) const;

    QString m_location;
    Opener m_opener;
};
