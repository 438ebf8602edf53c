// A database of several companies.
#pragma once

#include <cstdint>
#include <string>

namespace posto::postgres {

// Makes all tables in the empty database of a URI, those that grow by company partitioned by it. Seconds: how long to
// wait for the server. Raises 0x80004005, and leaves what stood there as it was.
void create_partitioned(const std::string& uri, std::int32_t timeout_seconds);

}  // namespace posto::postgres
