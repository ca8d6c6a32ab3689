#pragma once

namespace ebtq::test {

/// Makes every warning and every error that Qt logs fail the running test, so that noise cannot hide a fault.
void installFatalMessages();

} // namespace ebtq::test
