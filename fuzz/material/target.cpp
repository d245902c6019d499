// A material's COM surface: whatever a package calls, in any order and with any arguments, on several materials of two
// packages at once, whose references come and go and whose records may be closed before. A model in plain code says
// what each call has to answer.
#include "cape/com/com_object.h"
#include "fuzz/material/calls.h"
#include "fuzz/material/record.h"

#include <algorithm>
#include <vector>

namespace fuzz {

namespace {

constexpr std::size_t mostClients = 8;
constexpr int mostCalls = 100;

class Play {
public:
    Play(Input &bytes, Record &first, Record &second) : input(bytes), records{&first, &second}
    {
        for (Record *record : records) {
            Client client;
            client.package = &record->package.contents;
            FUZZ_CHECK(client.material.queryFrom(record->package.material.get()) == S_OK);
            client.expected = std::make_shared<model::Material>(record->package.contents);
            record->package.material.reset();
            clients.push_back(std::move(client));
        }
    }

    void run()
    {
        for (int i = 0; i < mostCalls && !input.atEnd() && !clients.empty(); ++i)
            step();
    }

private:
    Client &anyClient() { return clients[input.below(clients.size())]; }

    void step()
    {
        const unsigned choice = input.byte();
        if (choice < 192)
            return CallMaterial(input, anyClient());
        switch (choice % 8) {
        case 0:
            return create();
        case 1:
        case 2:
            return copy();
        case 3:
            return CallRefused(input, anyClient());
        case 4:
            return AskMaterial(input, anyClient());
        case 5:
            return keep();
        case 6:
            if (input.chance(64))
                return records[input.below(2)]->close();
            return giveBack();
        default:
            return CallMaterial(input, anyClient());
        }
    }

    void create()
    {
        if (clients.size() == mostClients)
            return;
        Client &origin = anyClient();
        ComPointer<IDispatch> created;
        model::Answer answer;
        const bool isRefused = origin.expected->isClosed(u"ICapeThermoMaterial", u"CreateMaterial", answer);
        Expect(origin, origin.material->CreateMaterial(created.out()), answer);
        if (isRefused)
            return;
        Client client;
        client.package = origin.package;
        FUZZ_CHECK(client.material.queryFrom(created.get()) == S_OK);
        client.expected = std::make_shared<model::Material>(*origin.package);
        clients.push_back(std::move(client));
    }

    void copy()
    {
        Client &target = anyClient();
        if (input.chance(8)) {
            Expect(target, target.material->CopyFromMaterial(nullptr), target.expected->copyFrom(nullptr));
        } else if (input.chance(8)) {
            CopyMaterial(target, nullptr, nullptr);
        } else if (input.chance(16)) {
            ComPointer<IDispatch> other;
            records[0]->package.query(InterfaceId<IDispatch>, other.outVoid());
            CopyMaterial(target, other.get(), nullptr);
        } else {
            const Client &source = anyClient();
            CopyMaterial(target, source.material.get(), source.expected.get());
        }
    }

    void keep()
    {
        if (clients.size() == mostClients)
            return;
        const Client &origin = anyClient();
        Client client;
        client.package = origin.package;
        FUZZ_CHECK(client.material.queryFrom(origin.material.get()) == S_OK);
        client.expected = origin.expected;
        clients.push_back(std::move(client));
    }

    void giveBack() { clients.erase(clients.begin() + input.below(clients.size())); }

    Input &input;
    Record *records[2];
    std::vector<Client> clients;
};

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const LONG objectsBefore = Module.lockCount;
    {
        fuzz::Input input(data, size);
        fuzz::Record first(input);
        fuzz::Record second(input);
        fuzz::Play(input, first, second).run();
    }
    FUZZ_CHECK(Module.lockCount == objectsBefore);
    return 0;
}
