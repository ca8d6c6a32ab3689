#pragma once

#include "contracts/host_contracts.h"

namespace ebtq {

/// Keys of dictionary rows. A key is above every key that is in the table and above every key given out
/// before, also by concurrent callers, so that the key of a deleted row is never used again.
class IdGenerator
{
public:
    /// `db` must outlive the generator.
    bool Init(HostDb &db);
    /// The next key of a table, taken within the open transaction, else within a new one. The empty text and
    /// `id` on success; else the reason, for the user, and `id` as it was.
    [[nodiscard]] QString NextID(const QString &table, const QString &keyColumn, int &id);

private:
    int takeNext(const QString &table, const QString &keyColumn);

    HostDb *m_db = nullptr;
};

} // namespace ebtq
