#include "drivers/Application.h"

Application::Application(QObject* parent)
    : QObject(parent)
{}

Application::~Application() = default;
