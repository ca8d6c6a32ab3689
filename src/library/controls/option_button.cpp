#include "library/controls/option_button.h"

using namespace Qt::StringLiterals;

namespace ebtq {

namespace {

void follow(const OptionButton &chosen, OptionButton &other)
{
    QObject::connect(&chosen, &OptionButton::Click, &other, [&chosen, &other] {
        if (chosen.Value() != 0)
            other.setValue(0);
    });
}

} // namespace

OptionButton::OptionButton(const QString &name, int index)
    : TwoState(u"OptionButton"_s, name, index)
{}

void OptionButton::exclude(OptionButton &other)
{
    follow(*this, other);
    follow(other, *this);
}

} // namespace ebtq
