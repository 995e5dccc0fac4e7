// Loads a picture of any bytes, or a font of which some bytes were changed, and draws with it.
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "stage.h"
#include "velumo.h"
#include "world.h"

namespace {

using namespace fuzz;

constexpr char of_font[] = {'F', 'O', 'N', 'T'}; // before the changes

std::vector<u8> changed_font(Input &input) {
    std::vector<u8> bytes(font_bytes().begin(), font_bytes().end());
    while (!input.is_empty()) {
        const std::size_t place = input.number() % bytes.size();
        const Bytes change = input.block();
        std::copy_n(change.begin(), std::min(change.size(), bytes.size() - place), &bytes[place]);
    }
    return bytes;
}

std::vector<u8> form_with_both() {
    vel_object_file_rec records[2] = {};
    for (vel_object_file_rec &record : records) record.width = record.height = 40;
    records[0].type = VEL_TYPE_PICTURE_UNLOADED;
    std::strcpy(records[0].image_path, picture_path);
    records[1].type = VEL_TYPE_LABEL;
    records[1].font_choice = 1;
    records[1].font_size = 12;
    std::strcpy(records[1].font_path, font_path);
    std::strcpy(records[1].label, "AVWay");
    const auto *const bytes = reinterpret_cast<const u8 *>(records);
    return {bytes, bytes + sizeof records};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const Stage stage;
    static const std::vector<u8> form = form_with_both();
    const bool is_font = size >= sizeof of_font && std::memcmp(data, of_font, sizeof of_font) == 0;
    Input input({data, size});
    for (std::size_t k = 0; is_font && k < sizeof of_font; ++k) input.byte();
    const std::vector<u8> font = is_font ? changed_font(input) : std::vector<u8>();
    world() = {};
    world().form = form;
    world().font = font;
    if (!is_font) world().picture = {data, size};
    const auto made = std::make_unique<vel_context>(); // on the heap it is watched
    vel_context &ctx = *made;
    stage.set_up(ctx, {100, 80, 32, true});
    ctx.strict_pictures = 1;
    if (vel_load_forms(&ctx, 0, 0, form_path, text_path) != VEL_OK) std::abort();
    vel_draw_all_objects(&ctx, 1, 1);
    vel_close(&ctx);
    return 0;
}
