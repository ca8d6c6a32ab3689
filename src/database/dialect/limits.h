#pragma once

#include <QtGlobal>

/// How large and how deep a statement may be, each limit with its reason. What runs on one engine runs on
/// all, so the strictest engine decides.
namespace ebtq::db::limits {

// Read

/// The longest field holds ten million characters; the rest is headroom.
inline constexpr qsizetype longestStatement = 64 * 1024 * 1024;
/// Far above any statement of the modules; keeps a hostile one from taking the memory of a tree.
inline constexpr size_t mostTokens = 20000;
/// Levels of the recursive parser, far from the end of this program's stack.
inline constexpr int deepestLevel = 100;
/// Longer than any chain of the modules; each operand makes the engine's tree higher by one.
inline constexpr size_t longestChain = 400;

// Resolved

/// PostgreSQL takes 1664 columns as a result, SQLite 2000.
inline constexpr size_t mostColumns = 1500;
/// SQLite joins 64 tables.
inline constexpr size_t mostSources = 60;
/// SQLite's expression trees are at most 1000 high; the rest is for what the statement puts around them.
inline constexpr int tallestExpression = 900;
/// What rendering adds around one operand at most: a cast, a bracket and a function.
inline constexpr int heightOfRendering = 3;

// Rendered

/// Arguments of one call: PostgreSQL takes 100, SQLite 127.
inline constexpr size_t mostArguments = 100;
/// SQLite's parser has a stack of 100; the end of a clause needs the rest.
inline constexpr int mostOpenTokens = 95;

} // namespace ebtq::db::limits

/// How many tokens and reduced parts SQLite's parser holds on its stack at the deepest place inside of each
/// form. The sum along the way to an operand is at most limits::mostOpenTokens.
namespace ebtq::db::open_tokens {

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
