#include "core/clsComponent.h"

#include "core/AddInControl.h"
#include "core/ErrorColours.h"
#include "core/Globals.h"
#include "core/HandlerTable.h"
#include "core/IPage.h"
#include "core/ImageList.h"
#include "core/NodeStatusFeed.h"
#include "core/PresentTime.h"
#include "core/StoredNode.h"
#include "core/clsComponents.h"
#include "services/ApplicationOptions.h"
#include "services/ErrorBox.h"
#include "services/NumericUtilities.h"
#include "services/TextUtilities.h"
#include "services/VigilError.h"

clsComponent::clsComponent() = default;

clsComponent::~clsComponent()
{
    ReleaseComponent();
}

bool clsComponent::Disabled()
{
    ComponentHandler* handler = GetComponent();
    return handler && handler->Disabled();
}

void clsComponent::setDisabled(bool disabled)
{
    if (m_oRemoteObject)
        m_oRemoteObject->setDisabled(disabled);
}

QString clsComponent::TreeText() const
{
    QString text = m_sName;
    if (!m_sCurrentMessage.isEmpty()) {
        text += QStringLiteral(": ") + m_sCurrentMessage;
        if (m_lPrintCount >= 0)
            text += QStringLiteral(" (%1)").arg(m_lPrintCount);
    } else if (m_lPrintCount >= 0) {
        text += QStringLiteral(": (%1)").arg(m_lPrintCount);
    }
    if (!m_sAssignedFile.isEmpty()) {
        text += QLatin1Char(' ');
        text += m_bAssignedFromLabelSet
                    ? QStringLiteral("     <") + GetFileName(m_sAssignedFile) + QLatin1Char('>')
                    : QStringLiteral("     [") + GetFileName(m_sAssignedFile) + QLatin1Char(']');
    }
    const QString alert = GetHighestAlert();
    if (!alert.isEmpty())
        text += QStringLiteral(" [") + alert + QLatin1Char(']');
    return text;
}

QString clsComponent::IconText() const
{
    QString text = m_sCurrentMessage;
    if (m_lPrintCount >= 0)
        text += QStringLiteral("\r\n") + QString::number(m_lPrintCount);
    return text;
}

ComponentHandler* clsComponent::GetComponent()
{
    if (m_oRemoteObject)
        return m_oRemoteObject.get();
    m_oRemoteObject = HandlerTable::createFor(m_lRemoteObjectPrinterNumber);
    if (!m_oRemoteObject)
        return nullptr;
    connect(m_oRemoteObject.get(), &ComponentHandler::StatusChanged, this,
            &clsComponent::UpdateStatus);
    m_sRemoteObjectControl = m_oRemoteObject->GetControlName();
    m_sRemoteObjectName = m_oRemoteObject->GetObjectName();
    m_oRemoteObject->Initialise(this, m_sID, m_sName);
    return m_oRemoteObject.get();
}

void clsComponent::ReleaseComponent()
{
    if (!m_oRemoteObject)
        return;
    IgnoringFailure([this] { m_oRemoteObject->CloseDown(); });
    m_oRemoteObject->disconnect(this);
    m_oRemoteObject.reset();
}

void clsComponent::Process()
{
    ComponentHandler* handler = GetComponent();
    if (!handler)
        throw VigilError(VigilError::TypeMismatch, QStringLiteral("clsComponent"),
                         QStringLiteral("No handler serves printer number %1")
                             .arg(m_lRemoteObjectPrinterNumber));
    handler->m_sName = m_sName;
    handler->Process();
}

void clsComponent::ProcessTimeout(qint16 nTimeout_seconds)
{
    if (ComponentHandler* handler = GetComponent())
        handler->ProcessTimeout(nTimeout_seconds);
}

bool clsComponent::ProcessResponse(const QByteArray& sReply)
{
    if (ComponentHandler* handler = GetComponent())
        handler->ProcessResponse(sReply);
    return true;
}

void clsComponent::SaveAll()
{
    if (g_oAddIn)
        IgnoringFailure([] { g_oAddIn->Save(); });
}

void clsComponent::Save(const QString& sKeyName)
{
    StoredNode key(sKeyName);
    key.removeWholeKey();
    key.writeText(QStringLiteral("ObjName"), m_sRemoteObjectName);
    key.writeText(QStringLiteral("ObjModule"), m_sRemoteObjectModule);
    key.writeText(QStringLiteral("ObjControl"), m_sRemoteObjectControl);
    key.writeNumber(QStringLiteral("ObjPrinterNumber"), m_lRemoteObjectPrinterNumber);
    key.writeText(QStringLiteral("Name"), m_sName);
    CompactStoredSettings();
    qint32 lastRow = -1;
    if (!m_asSettings.first().first.isEmpty()) {
        for (qsizetype row = 0; row < m_asSettings.size(); ++row) {
            key.writeText(QStringLiteral("Ext.%1.Name").arg(row), m_asSettings.at(row).first);
            key.writeText(QStringLiteral("Ext.%1.Value").arg(row), m_asSettings.at(row).second);
            lastRow = qint32(row);
        }
    }
    key.writeNumber(QStringLiteral("ExtendedCount"), lastRow);
}

void clsComponent::LoadState(const QString& sKeyName)
{
    StoredNode key(sKeyName);
    m_sRemoteObjectName = key.readText(QStringLiteral("ObjName"), QString());
    m_sRemoteObjectModule = key.readText(QStringLiteral("ObjModule"), QString());
    m_sRemoteObjectControl = key.readText(QStringLiteral("ObjControl"), QString());
    m_lRemoteObjectPrinterNumber = key.readNumber(QStringLiteral("ObjPrinterNumber"), 0);
    m_sName = key.readText(QStringLiteral("Name"), QString());
    const qint32 lastRow = key.readNumber(QStringLiteral("ExtendedCount"), -1);
    // A damaged count larger than the rows stored ends at the first row that isn't there.
    for (qint32 row = 0; row <= lastRow && key.has(QStringLiteral("Ext.%1.Name").arg(row)); ++row)
        AddStoredSetting(key.readText(QStringLiteral("Ext.%1.Name").arg(row), QString()),
                         key.readText(QStringLiteral("Ext.%1.Value").arg(row), QString()));
}

void clsComponent::ShowProperties()
{
    IgnoringFailure([this] {
        if (ComponentHandler* handler = GetComponent())
            handler->ShowProperties();
    });
}

QString clsComponent::GetControlName() const
{
    return m_sRemoteObjectModule + QLatin1Char('.') + m_sRemoteObjectControl;
}

void clsComponent::InitialiseControl(IPage& oControl)
{
    oControl.Setup(m_sName, GetComponent());
}

bool clsComponent::Resize(IPage& oControl, qint16 nWidth, qint16 nHeight)
{
    bool resized = false;
    IgnoringFailure([&] { resized = oControl.DoResize(nWidth, nHeight).value_or(false); });
    return resized;
}

qsizetype clsComponent::FindStoredSetting(const QString& sSettingName) const
{
    for (qsizetype row = 0; row < m_asSettings.size(); ++row)
        if (m_asSettings.at(row).first == sSettingName)
            return row;
    return m_asSettings.size();
}

void clsComponent::AddStoredSetting(const QString& sSettingName, const QString& sValue)
{
    qsizetype row = FindStoredSetting(sSettingName);
    if (row == m_asSettings.size())
        row = FindStoredSetting(QString());
    if (row == m_asSettings.size())
        m_asSettings.append(std::pair<QString, QString>());
    m_asSettings[row] = {sSettingName, sValue};
}

bool clsComponent::GetStoredSetting(const QString& sSettingName, QString& sValue) const
{
    const qsizetype row = FindStoredSetting(sSettingName);
    if (row == m_asSettings.size())
        return false;
    sValue = m_asSettings.at(row).second;
    return true;
}

QString clsComponent::GetStoredSettingByIdx(qint32 nIndex, bool bGetName) const
{
    if (nIndex < 0 || nIndex >= m_asSettings.size())
        return bGetName ? QStringLiteral("-1") : QString();
    return bGetName ? m_asSettings.at(nIndex).first : m_asSettings.at(nIndex).second;
}

void clsComponent::RemoveStoredSetting(const QString& sSettingName)
{
    const qsizetype row = FindStoredSetting(sSettingName);
    if (row < m_asSettings.size())
        m_asSettings[row] = {};
}

void clsComponent::CompactStoredSettings()
{
    QList<std::pair<QString, QString>> named;
    for (const auto& row : std::as_const(m_asSettings))
        if (!row.first.isEmpty())
            named.append(row);
    if (named.isEmpty())
        named.append(std::pair<QString, QString>());
    m_asSettings = named;
}

TreeNode* clsComponent::GetTreeComponent(const QString& sID, bool bSelect)
{
    if (!g_oComponents)
        return nullptr;
    TreeNode* node = g_oComponents->Find(sID);
    if (bSelect && g_oAddIn)
        g_oAddIn->SelectTreeItem(sID);
    return node;
}

void clsComponent::RegisterGLV(const QString& sID)
{
    if (m_asGLVs.contains(sID))
        return;
    const qsizetype free = m_asGLVs.indexOf(QString());
    if (free >= 0)
        m_asGLVs[free] = sID;
    else
        m_asGLVs.append(sID);
}

void clsComponent::UnregisterGLV(const QString& sID)
{
    const qsizetype entry = m_asGLVs.indexOf(sID);
    if (entry >= 0)
        m_asGLVs[entry].clear();
}

ErrorState clsComponent::GetErrorState()
{
    ComponentHandler* handler = GetComponent();
    return handler ? handler->GetErrorState() : StateNoAnswer;
}

quint32 clsComponent::GetErrorColour(qint32 eViewType, bool bContrastColour,
                                     std::optional<qint32> vErrorState)
{
    return LookUpColour(vErrorState.value_or(GetErrorState()), eViewType, bContrastColour);
}

void clsComponent::AddImages(ImageList& imlSmallImageList, ImageList& imlLargeImageList)
{
    ComponentHandler* handler = GetComponent();
    if (!handler)
        return;
    // Each node has a pair of entries of its own, added without a key.
    m_nSmallIcon = imlSmallImageList.add(QString(), handler->PrinterIcon(0), 0);
    m_nLargeIcon = imlLargeImageList.add(QString(), handler->PrinterIcon(3), 3);
}

qint32 clsComponent::GetIconIndex(qint32 lvbLPSize)
{
    return IconIndex({m_nSmallIcon, m_nLargeIcon}, lvbLPSize);
}

QString clsComponent::GetIcon(qint32 lvbLPSize)
{
    const qint32 index = GetIconIndex(lvbLPSize);
    const ImageList::Picture* picture =
        index && g_oAddIn ? g_oAddIn->GetFromImageList(lvbLPSize, index) : nullptr;
    return picture ? picture->path : QString();
}

void clsComponent::SyncTime(std::optional<QDateTime> dtTime)
{
    if (ComponentHandler* handler = GetComponent())
        handler->SyncTime(dtTime.value_or(PresentTime()));
}

QString clsComponent::IconPath() const
{
    return GetIconsFolderName();
}

qint32 clsComponent::LBXPrinterType()
{
    qint32 type = 0;
    IgnoringFailure([this, &type] {
        if (ComponentHandler* handler = GetComponent())
            type = handler->LBXPrinterType();
    });
    return type;
}

QString clsComponent::GetHighestAlert() const
{
    return m_oRemoteObject ? m_oRemoteObject->HighestAlert() : QString();
}

void clsComponent::UpdateStatus()
{
    // Every step's failure is ignored and the next one runs.
    ComponentHandler* handler = m_oRemoteObject.get();
    if (handler) {
        IgnoringFailure([&] { m_sCurrentMessage = handler->CurrentFile(); });
        IgnoringFailure([&] { m_lPrintCount = handler->PrintCount(); });
    }
    if (g_oAddIn && !m_bIsGLVComponent) {
        // Worked out once: a handler works its state out afresh at each call.
        std::optional<ErrorState> state;
        IgnoringFailure([this, &state] { state = GetErrorState(); });
        IgnoringFailure([this, &state] {
            if (auto item = g_oAddIn->GetTreeNode(m_sID)) {
                item->setColours(GetErrorColour(TreePalette, false, state),
                                 GetErrorColour(TreePalette, true, state));
                const QString text = TreeText();
                if (item->Text() != text)
                    item->setText(text);
            }
        });
        for (const QString& glv : QStringList(m_asGLVs)) {
            if (glv.isEmpty())
                continue;
            IgnoringFailure([this, &glv] {
                if (TreeNode* dashboard = GetTreeComponent(glv, false))
                    dashboard->Process();
            });
        }
        if (state && state != m_stateTold) {
            NodeStatusFeed::tell(*this, m_stateTold, *state);
            m_stateTold = state;
        }
    }
    emit StatusChanged();
}
