// Projects for tests and benchmarks, the same at every run. They fill the global tables; the
// caller has reset them.
#pragma once

namespace tavernook {

// A household of ordinary size with gaps between its slots, every field in use somewhere.
void fill_typical_project();

// Every table to the brim: 10,000 items with 16 lots each, 1,000 recipes with 50 ingredients, 1,095
// full days, 30,000 strings.
void fill_full_project();

}  // namespace tavernook
