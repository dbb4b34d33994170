#pragma once

#include <QString>
#include <optional>

class ComponentHandler;

// A page of the right-hand pane: the properties of a printer, or a group's dashboard.
class IPage
{
public:
    virtual ~IPage() = default;

    // Ties the page to the node's name and handler; called once, after creation.
    virtual void Setup(const QString& sName, ComponentHandler* oHandler) = 0;
    // Pages that stretch with the pane take the new size and answer; the others have no
    // such operation, and answer nothing.
    virtual std::optional<bool> DoResize(qint16 nWidth, qint16 nHeight);
};
