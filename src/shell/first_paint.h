#pragma once

namespace ebtq::shell {

/// Writes "first list painted" to the log "ebtq.start", once, when a list with rows stands on the screen.
/// Does nothing unless that log is switched on (QT_LOGGING_RULES="ebtq.start.debug=true").
void logFirstPaint();

} // namespace ebtq::shell
