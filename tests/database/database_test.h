#pragma once

#include "database/connection.h"
#include "support/messages.h"

#include <gmock/gmock.h>

/// What the tests of databases say most often.
namespace ebtq::db {

using ebtq::test::joined;
using ebtq::test::messageOf;
using ::testing::HasSubstr;
using ::testing::Not;

} // namespace ebtq::db
