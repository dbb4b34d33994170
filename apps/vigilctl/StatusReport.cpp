#include "StatusReport.h"

#include "core/ErrorColours.h"
#include "core/StateWords.h"
#include "core/clsComponent.h"
#include "core/clsComponents.h"

#include <QJsonArray>

namespace {
QString alertOf(TreeNode& node)
{
    return node.isGroup() ? QString() : static_cast<clsComponent&>(node).GetHighestAlert();
}

void appendLines(TreeNode& node, int depth, QString& lines)
{
    const qint32 state = node.GetErrorState();
    lines += QString(depth * 2, QLatin1Char(' ')) + QStringLiteral("%1: %2 %3, \"%4\"")
                                                        .arg(node.m_sName)
                                                        .arg(state)
                                                        .arg(StateWord(state), node.TreeText());
    const QString alert = alertOf(node);
    if (!alert.isEmpty())
        lines += QStringLiteral(", alert \"%1\"").arg(alert);
    lines += QLatin1Char('\n');
    if (node.isGroup())
        for (const auto& child : static_cast<clsComponents&>(node).Col().snapshot())
            appendLines(*child, depth + 1, lines);
}
} // namespace

QString StatusReport::text(TreeNode& root)
{
    QString lines;
    appendLines(root, 0, lines);
    return lines;
}

QJsonObject StatusReport::json(TreeNode& node)
{
    QJsonObject object{
        {QStringLiteral("id"), node.m_sID},        {QStringLiteral("name"), node.m_sName},
        {QStringLiteral("group"), node.isGroup()}, {QStringLiteral("state"), node.GetErrorState()},
        {QStringLiteral("text"), node.TreeText()}, {QStringLiteral("alert"), alertOf(node)},
    };
    if (node.isGroup()) {
        object.insert(QStringLiteral("printerNumber"), QJsonValue::Null);
        object.insert(QStringLiteral("handler"), QJsonValue::Null);
        QJsonArray children;
        for (const auto& child : static_cast<clsComponents&>(node).Col().snapshot())
            children.append(json(*child));
        object.insert(QStringLiteral("children"), children);
    } else {
        auto& printer = static_cast<clsComponent&>(node);
        printer.GetComponent();
        object.insert(QStringLiteral("printerNumber"), printer.m_lRemoteObjectPrinterNumber);
        object.insert(QStringLiteral("handler"), printer.m_sRemoteObjectName);
        object.insert(QStringLiteral("children"), QJsonArray());
    }
    return object;
}
