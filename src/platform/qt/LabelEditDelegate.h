#pragma once

#include <QStyledItemDelegate>
#include <functional>

// The in-place editor of the tree's labels. The owner may refuse an edit before it opens,
// and may refuse the new text when it is committed, which leaves the old one.
class LabelEditDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using BeforeEdit = std::function<void(bool& cancel)>;
    using AfterEdit = std::function<void(bool& cancel, const QString& newText)>;

    LabelEditDelegate(BeforeEdit before, AfterEdit after, QObject* parent = nullptr);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

private:
    BeforeEdit m_before;
    AfterEdit m_after;
};
