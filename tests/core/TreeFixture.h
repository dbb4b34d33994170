#pragma once

#include "core/AddInControl.h"
#include "core/Globals.h"
#include "core/MemoryContextMenus.h"
#include "core/MemoryPagePane.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"
#include "services/SettingsAccess.h"
#include "services/VigilError.h"
#include "support/FakeTimer.h"
#include "support/FakeTreeView.h"
#include "support/ScriptedHandler.h"
#include "support/ServicesFixture.h"

// A root group as the control holds it, a fake view, and a handler class that tests script.
class TreeFixture : public ServicesFixture
{
protected:
    void SetUp() override
    {
        ServicesFixture::SetUp();
        m_control = std::make_unique<AddInControl>(
            ControlPorts{m_view, m_pages, m_menus, m_timer1, m_timeout});
        g_oAddIn = m_control.get();
        g_bExiting = false;
        g_oComponents = std::make_shared<clsComponents>();
        g_oComponents->m_sID = QStringLiteral("GPRoot");
        g_oComponents->m_sName = QStringLiteral("All Printers");
    }

    void TearDown() override
    {
        g_oComponents.reset();
        g_oAddIn = nullptr;
        g_bExiting = false;
        m_control.reset();
        ServicesFixture::TearDown();
    }

    std::shared_ptr<clsComponents> group(const QString& id, const QString& name,
                                         clsComponents& parent)
    {
        auto node = std::make_shared<clsComponents>();
        node->m_sID = id;
        node->m_sName = name;
        parent.AddComponent(id, node);
        return node;
    }

    // A printer served by the scripted handler, its handler made at once.
    std::shared_ptr<clsComponent> printer(const QString& id, const QString& name,
                                          clsComponents& parent)
    {
        auto node = std::make_shared<clsComponent>();
        node->m_sID = id;
        node->m_sName = name;
        node->m_lRemoteObjectPrinterNumber = ScriptedHandler::FirstNumber;
        parent.AddComponent(id, node);
        node->GetComponent();
        return node;
    }

    static ScriptedHandler& handlerOf(clsComponent& node)
    {
        return static_cast<ScriptedHandler&>(*node.GetComponent());
    }

    // The names of the stored keys under the key.
    static QStringList storedChildren(const QString& key)
    {
        QStringList names;
        EnumSubKeys(HKEY_LOCAL_MACHINE, names, key);
        return names;
    }

    ScriptedHandler::Registration m_scripted;
    FakeTreeView m_view;
    MemoryPagePane m_pages;
    MemoryContextMenus m_menus;
    FakeTimer m_timer1{200, false};
    FakeTimer m_timeout{0, false};
    std::unique_ptr<AddInControl> m_control;
};
