#pragma once

namespace ebtq::db::open_tokens {

/// How many tokens and reduced parts SQLite's parser holds on its stack at the deepest place inside of each
/// form.
inline constexpr int statement = 14;     // the statement's own clauses down to the first operand
inline constexpr int derivedTable = 13;  // from ( select … where
inline constexpr int join = 6;           // ( left join-word right on condition
inline constexpr int bracket = 1;        // (
inline constexpr int operation = 2;      // left operator
inline constexpr int condition = 3;      // ( - (
inline constexpr int call = 5;           // name ( distinct arguments ,
inline constexpr int singleArgument = 3; // name ( distinct
inline constexpr int caseForm = 6;       // case operand branches when condition then
inline constexpr int list = 5;           // value not-in ( items ,
inline constexpr int range = 4;          // value between low and
inline constexpr int subSelect = 15;     // value not-in ( select … where

} // namespace ebtq::db::open_tokens
