#pragma once

#include "core/IContextMenus.h"

#include <QHash>
#include <optional>

// The menus of a program without a window: captions and the check mark are kept, and a
// pop-up is only remembered, since there is nobody to pick from it.
class MemoryContextMenus : public IContextMenus
{
public:
    void setCaption(Entry entry, const QString& caption) override { m_captions[entry] = caption; }
    void setDisableChecked(bool checked) override { m_bDisableChecked = checked; }
    void popup(Menu menu) override { m_lastPopup = menu; }

    QString caption(Entry entry) const { return m_captions.value(entry); }
    bool isDisableChecked() const { return m_bDisableChecked; }
    std::optional<Menu> lastPopup() const { return m_lastPopup; }

private:
    QHash<Entry, QString> m_captions;
    bool m_bDisableChecked = false;
    std::optional<Menu> m_lastPopup;
};
