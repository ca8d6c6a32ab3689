#pragma once

#include "component/component_library.h"
#include "screens/frame/qt_desktop.h"
#include "screens/frame/view_registry.h"

namespace ebtq {

/// The classes of the table, made on the Qt desktop. Counts what it made and still lives: while there is any,
/// the library must stay loaded.
class LibraryOfClasses : public ComponentLibrary
{
public:
    LibraryOfClasses();

    [[nodiscard]] QStringList classNames() const override;
    [[nodiscard]] std::unique_ptr<QObject> create(const QString &className) override;
    [[nodiscard]] QWidget *createView(QObject &module, QWidget *parent) override;
    [[nodiscard]] bool hasLiveObjects() const { return m_liveObjects > 0; }

private:
    void count(QObject &object);

    ViewRegistry m_views;
    QtDesktop m_desktop;
    int m_liveObjects = 0;
};

/// The one of this library.
[[nodiscard]] LibraryOfClasses &libraryOfClasses();

} // namespace ebtq
