#include "wire/message_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace wire {

namespace {

constexpr std::size_t firstBlock = std::size_t{1} << 20; // taken on the word of a length alone
constexpr std::size_t keptBlock = std::size_t{1} << 24;

} // namespace

bool MessageReader::greeting()
{
    Greeting start{};
    if (take(&start, sizeof start) != sizeof start) {
        why = "it ended before it had greeted";
        return false;
    }
    if (std::memcmp(start.magic, magic, sizeof magic) != 0) {
        why = "it did not greet as a host of Verdanth does";
        return false;
    }
    if (start.version != formatVersion || start.reserved != 0) {
        why = "it speaks version " + std::to_string(start.version) + " of the messages, and not " +
              std::to_string(formatVersion);
        return false;
    }
    return true;
}

MessageReader::Arrival MessageReader::next()
{
    forget();
    const std::size_t got = take(&header, sizeof header);
    const std::uint64_t length = std::exchange(header.length, 0);
    if (got == 0)
        return Arrival::End;
    if (got < sizeof header)
        return broken("the stream ended at byte " + std::to_string(got) + " of a message");
    if (header.reserved != 0)
        return broken("byte 4 of a message: reserved bytes that are not 0");
    if (length % 8 != 0)
        return broken("byte 8 of a message: a length that is no multiple of 8");
    if (length > longestMessage)
        return broken("byte 8 of a message: a length beyond 2^40");
    header.length = length;
    return fetchPayload();
}

MessageReader::Arrival MessageReader::fetchPayload()
{
    for (std::size_t size = 0; size < header.length;) {
        const std::size_t wanted = std::min<std::size_t>(header.length, std::max(firstBlock, 2 * size));
        if (!makeRoom(wanted))
            return skip(header.length - size);
        const std::size_t got = take(block.get() + size, wanted - size);
        if (got < wanted - size)
            return broken("the stream ended at byte " + std::to_string(sizeof header + size + got) + " of a message");
        size = wanted;
    }
    return Arrival::Message;
}

MessageReader::Arrival MessageReader::skip(std::uint64_t count)
{
    const std::uint64_t length = std::exchange(header.length, 0);
    while (count > 0) {
        if (!waitForMore())
            return broken("the stream ended at byte " + std::to_string(sizeof header + length - count) +
                          " of a message");
        const std::size_t part = std::min<std::uint64_t>(count, aheadEnd - aheadBegin);
        aheadBegin += part;
        count -= part;
    }
    why = "no memory for a message of " + std::to_string(length) + " bytes";
    return Arrival::NoRoom;
}

void MessageReader::forget()
{
    header.length = 0;
    if (capacity <= keptBlock)
        return;
    block.reset();
    capacity = 0;
}

bool MessageReader::waitForMore()
{
    if (aheadBegin == aheadEnd) {
        aheadBegin = 0;
        aheadEnd = source.read(ahead, sizeof ahead);
    }
    return aheadBegin < aheadEnd;
}

std::size_t MessageReader::take(void *bytes, std::size_t count)
{
    auto *target = static_cast<std::byte *>(bytes);
    std::size_t taken = 0;
    while (taken < count) {
        if (aheadBegin < aheadEnd) {
            const std::size_t part = std::min(count - taken, aheadEnd - aheadBegin);
            std::memcpy(target + taken, ahead + aheadBegin, part);
            aheadBegin += part;
            taken += part;
        } else if (count - taken >= sizeof ahead) {
            const std::size_t got = source.read(target + taken, count - taken);
            if (got == 0)
                break;
            taken += got;
        } else if (!waitForMore()) {
            break;
        }
    }
    return taken;
}

MessageReader::Arrival MessageReader::broken(std::string reason)
{
    header.length = 0;
    why = std::move(reason);
    return Arrival::Broken;
}

bool MessageReader::makeRoom(std::size_t count)
{
    if (count <= capacity)
        return true;
    auto *larger = static_cast<std::byte *>(std::realloc(block.get(), count));
    if (!larger)
        return false;
    block.release(); // NOLINT(bugprone-unused-return-value): realloc has freed it
    block.reset(larger);
    capacity = count;
    return true;
}

} // namespace wire
