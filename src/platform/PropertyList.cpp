#include "platform/PropertyList.h"

#include "platform/BinaryPropertyListWriter.h"

namespace dayward {

namespace {

using Reference = BinaryPropertyListWriter::Reference;

struct Adding {
    BinaryPropertyListWriter& writer;
    const std::function<std::uint64_t(ArchiveUID)>& numberOf;

    Reference add(const PropertyList& list) { return std::visit(*this, list.value); }

    Reference operator()(std::monostate) { return writer.null(); }
    Reference operator()(bool value) { return writer.boolean(value); }
    Reference operator()(std::int64_t value) { return writer.integer(value); }
    Reference operator()(std::uint64_t value) { return writer.unsignedInteger(value); }
    Reference operator()(double value) { return writer.real(value); }
    Reference operator()(Date value) { return writer.date(value); }
    Reference operator()(const std::string& value) { return writer.text(value); }
    Reference operator()(const Data& value) { return writer.data(value); }
    Reference operator()(ArchiveUID value) { return writer.uid(numberOf(value)); }

    Reference operator()(const PropertyList::List& elements) {
        std::vector<Reference> references;
        references.reserve(elements.size());
        for (const PropertyList& element : elements) references.push_back(add(element));
        return writer.array(references);
    }

    Reference operator()(const PropertyList::Fields& fields) {
        std::vector<Reference> references;
        references.reserve(2 * fields.size());
        for (const auto& [key, value] : fields) {
            references.push_back(writer.text(key));
            references.push_back(add(value));
        }
        return writer.dictionary(references);
    }
};

}  // namespace

std::uint32_t addPropertyList(BinaryPropertyListWriter& writer, const PropertyList& list,
                              const std::function<std::uint64_t(ArchiveUID)>& numberOf) {
    return Adding{writer, numberOf}.add(list);
}

Data binaryPropertyList(const PropertyList& root) {
    BinaryPropertyListWriter writer;
    const auto top = addPropertyList(writer, root, &ArchiveUID::number);
    return writer.finish(top);
}

}  // namespace dayward
