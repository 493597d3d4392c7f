#pragma once

#include <cstddef>

namespace vandrel {

// The columns of the site list, and the fields of a site in their order.
enum SiteColumn : std::size_t { nameColumn, urlColumn, descriptionColumn, dateColumn };

} // namespace vandrel
