#include "test_module.h"

#include <QLineEdit>
#include <QVBoxLayout>

namespace ebtq::test {

std::unique_ptr<QObject> TestLibrary::create(const QString &className)
{
    if (!m_classNames.contains(className))
        return nullptr;
    auto result = std::make_unique<TestModule>(log);
    module = result.get();
    prepare(*module);
    return result;
}

QWidget *TestLibrary::createView(QObject &, QWidget *parent)
{
    if (!hasViews)
        return nullptr;
    auto *view = new QWidget(parent);
    auto *layout = new QVBoxLayout(view);
    for (const char *name : {"first", "second"}) {
        auto *field = new QLineEdit;
        field->setObjectName(QLatin1String(name));
        layout->addWidget(field);
    }
    view->setFocusProxy(view->findChild<QLineEdit *>(u"first"_qs));
    QObject::connect(view, &QObject::destroyed, [this] { log << u"view gone"_qs; });
    return view;
}

} // namespace ebtq::test
