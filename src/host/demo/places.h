#pragma once

#include "database/connection.h"
#include "host/demo/random.h"

#include <vector>

namespace ebtq::host {

/// A district in which buildings stand.
struct Quarter
{
    int id;
    QString name;
    double price; ///< of a square metre, in 10,000 yuan
};

struct Block
{
    int id;
    QString name;
    int floors;
};

struct Building
{
    int id;
    QString name;
    Quarter quarter;
    QStringView use;
    QStringView type;
    QString year;
    double price; ///< of a square metre, in 10,000 yuan
    double fee;   ///< of a square metre, in yuan a month
    std::vector<Block> blocks;
};

/// Writes districts, buildings and blocks; gives the buildings.
[[nodiscard]] std::vector<Building> writePlaces(db::Connection &connection, Random &random);

} // namespace ebtq::host
