#include "platform/lbx/UnusableTransport.h"

UnusableTransport::UnusableTransport(QString problem, QObject* parent)
    : Transport(parent)
    , m_problem(std::move(problem))
{}
