#include "barcodes/scan_index.h"

#include "barcodes/own_label.h"
#include "barcodes/scan_list.h"
#include "barcodes/scanned_code.h"
#include "barcodes/scanners.h"
#include "basics/text.h"
#include "core/project_data.h"
#include "core/rows.h"

namespace tavernook {

namespace {

using Barcode = FixedString<32>;

i16 item_of_label(std::string_view code) {
    const bool counts = scanner_type == cue_cat ? code.starts_with("TVK") : is_own_label(code);
    const i16 item = counts ? slot_of_label(code, item_capacity) : i16{0};
    return is_live_row(items, item) ? item : i16{0};
}

bool can_be_borne(std::string_view code) {
    return code == trim(code) && code.size() <= Barcode::size;
}

// `slot_of` and `live_of` answer as find_barcode and find_scanned_item do.
template <typename SlotOf, typename LiveOf>
i16 meaning_of(std::string_view code, SlotOf slot_of, LiveOf live_of) {
    const i16 labelled = item_of_label(code);
    if (labelled != 0 || trim(code).empty()) return labelled;
    const i16 slot = slot_of(code);
    const bool is_answer = slot != 0 ? is_live_row(items, slot) : can_be_borne(code);
    return is_answer ? slot : live_of(code);
}

void trim_in_place(Barcode& barcode) {
    if (barcode.stored().front() == ' ') barcode = barcode.trimmed();
}

}  // namespace

i16 find_barcode(std::string_view barcode) noexcept {
    const bool may_match = can_be_borne(barcode);
    const Barcode wanted(barcode);
    for (i16 slot = 1; slot <= item_capacity; ++slot) {
        Barcode& borne = items[slot].barcode;
        trim_in_place(borne);
        if (may_match && borne == wanted) return slot;
    }
    return 0;
}

i16 item_of_scan(std::string_view code) noexcept {
    return meaning_of(code, find_barcode, find_scanned_item);
}

ScanIndex::ScanIndex() {
    bearers_.reserve(item_capacity);
    for (i16 slot = 1; slot <= item_capacity; ++slot) {
        ItemRecord& item = items[slot];
        trim_in_place(item.barcode);
        Bearers& bearers = bearers_[item.barcode.right_trimmed()];
        if (bearers.any == 0) bearers.any = slot;
        if (bearers.live == 0 && item.in_use == 1) bearers.live = slot;
    }
}

ScanIndex::Bearers ScanIndex::bearers_of(std::string_view barcode) const {
    const auto found = bearers_.find(barcode);
    return found != bearers_.end() ? found->second : Bearers{};
}

i16 ScanIndex::item_of(std::string_view code) const {
    const auto live_of = [this](std::string_view barcode) {
        const Barcode wanted(trim(barcode));
        return wanted == no_barcode ? i16{0} : bearers_of(wanted.trimmed()).live;
    };
    return meaning_of(
        code, [this](std::string_view barcode) { return bearers_of(barcode).any; }, live_of);
}

}  // namespace tavernook
