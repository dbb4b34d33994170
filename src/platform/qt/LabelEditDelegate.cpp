#include "platform/qt/LabelEditDelegate.h"

#include <QLineEdit>

LabelEditDelegate::LabelEditDelegate(BeforeEdit before, AfterEdit after, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_before(std::move(before))
    , m_after(std::move(after))
{}

QWidget* LabelEditDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                         const QModelIndex& index) const
{
    bool cancel = false;
    if (m_before)
        m_before(cancel);
    return cancel ? nullptr : QStyledItemDelegate::createEditor(parent, option, index);
}

void LabelEditDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                     const QModelIndex& index) const
{
    const auto* line = qobject_cast<QLineEdit*>(editor);
    if (!line)
        return;
    bool cancel = false;
    if (m_after)
        m_after(cancel, line->text());
    if (!cancel)
        QStyledItemDelegate::setModelData(editor, model, index);
}
