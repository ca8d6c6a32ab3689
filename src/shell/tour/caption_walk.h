#pragma once

#include <QStringList>

class QWidget;

namespace ebtq::shell {

/// What is wrong with the words in sight in a window: the mark of a mnemonic that nothing takes, blanks that
/// part nothing, and what the keyboard reaches without a name that could be read aloud.
[[nodiscard]] QStringList captionFaults(const QWidget &window);

} // namespace ebtq::shell
