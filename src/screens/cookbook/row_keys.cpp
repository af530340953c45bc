#include "screens/cookbook/row_keys.h"

#include "basics/number_text.h"

namespace tavernook {

namespace {

i16 number_before(std::string_view key, char letter) {
    if (key.size() < 2 || key.back() != letter) return 0;
    return round_to_i16(leading_number(key.substr(0, key.size() - 1)));
}

}  // namespace

i16 catagory_in_key(std::string_view key) {
    return number_before(key, 'r');
}

i16 recipe_in_key(std::string_view key) {
    return number_before(key, 'c');
}

i16 item_in_key(std::string_view key) {
    return number_before(key, 't');
}

}  // namespace tavernook
