#pragma once

#include "contracts/host_contracts.h"

namespace ebtq {

/// Keys of dictionary rows. A key is above every key that is in the table and above every key given out
/// before, whoever else asks at the same time, so that the key of a deleted row never comes back under
/// another name.
class IdGenerator
{
public:
    /// `db` must stay good as long as keys are asked for.
    bool Init(HostDb &db);
    /// The next key of a table, taken within the open transaction or within one of its own. The empty text
    /// and `id` on success; else the reason, for the user, and `id` as it was.
    [[nodiscard]] QString NextID(const QString &table, const QString &keyColumn, int &id);

private:
    int takeNext(const QString &table, const QString &keyColumn);

    HostDb *m_db = nullptr;
};

} // namespace ebtq
