#include "component/library_of_classes.h"

#include "component/class_table.h"

#include <QWidget>

#include <algorithm>

namespace ebtq {

LibraryOfClasses::LibraryOfClasses()
    : m_desktop(m_views)
{
    for (const ComponentClass &entry : componentClasses())
        entry.addView(m_views);
    addFormViews(m_views);
}

QStringList LibraryOfClasses::classNames() const
{
    QStringList names;
    for (const ComponentClass &entry : componentClasses())
        names.append(entry.name);
    return names;
}

std::unique_ptr<QObject> LibraryOfClasses::create(const QString &className)
{
    const std::span<const ComponentClass> classes = componentClasses();
    const auto found = std::ranges::find_if(classes, [&](const ComponentClass &entry) {
        return className.compare(entry.name, Qt::CaseInsensitive) == 0;
    });
    if (found == classes.end())
        return nullptr;
    std::unique_ptr<QObject> module = found->make(m_desktop);
    count(*module);
    return module;
}

QWidget *LibraryOfClasses::createView(QObject &module, QWidget *parent)
{
    QWidget *view = m_views.createView(module, parent);
    if (view)
        count(*view);
    return view;
}

void LibraryOfClasses::count(QObject &object)
{
    ++m_liveObjects;
    QObject::connect(&object, &QObject::destroyed, [this] { --m_liveObjects; });
}

LibraryOfClasses &libraryOfClasses()
{
    static LibraryOfClasses library;
    return library;
}

} // namespace ebtq
