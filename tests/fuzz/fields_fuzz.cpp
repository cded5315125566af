// A setup file of any bytes: every field can be read and shown, and nothing that is read changes the image.
#include "fuzz_input.h"
#include "meter/field_value.h"
#include "shell/setup_files.h"

using namespace counter;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const SetupImage image = ImageOfText(fuzz::TextOf(data, size));
    fuzz::Require(image.SetupData.size() >= kImageDigits);
    for (const FieldRow& row : FieldTable()) {
        const FieldValue value = ValueOfField(image, row.Handle);
        fuzz::Require(!value.Text.empty() && value.Number >= 0 && value.Number <= 255);
        fuzz::Require(FieldDigits(image, row.Handle).size() == static_cast<std::size_t>(row.Digits));
        fuzz::Require(FieldEqual(image, image, row.Handle));
    }
    // A file that was written is the image that comes back.
    fuzz::Require(ImageOfText(TextOfImage(image)).SetupData == image.SetupData);
    return 0;
}
