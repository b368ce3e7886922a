#include "platform/Files.h"

#include "basic/RunTimeError.h"

namespace korvel {

std::string NewFile::hostPath() {
    throw RunTimeError(errors::pathFileAccessError);
}

std::string Files::readAll(const std::string& name) {
    const auto source = open(name);
    std::string text;
    std::vector<char> chunk(std::size_t{256} * 1024);
    while (const std::size_t count = source->read(chunk.data(), chunk.size()))
        text.append(chunk.data(), count);
    return text;
}

void Files::writeWhole(const std::string& name, std::string_view bytes) {
    const auto file = create(name);
    file->write(bytes);
    file->commit();
}

} // namespace korvel
