// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Any bytes are either a drawing, all of whose entities the report accounts for and whose objects
// are sound to the last number, or refused with a line and a cause.
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

#include <kx/host/kxHostApplication.h>

#include "EntityCount.h"
#include "FuzzCheck.h"
#include "ObjectChecks.h"
#include "drawing/DxfReader.h"

using kxdrawing::Drawing;
using kxdrawing::ReadResult;

namespace {

/// More is not exploded of one drawing.
constexpr std::size_t kExploded = 60;

/// A file in memory.
class MemoryFile {
public:
    MemoryFile() : m_handle(memfd_create("drawing", MFD_CLOEXEC)) { FUZZ_CHECK(m_handle >= 0); }

    void write(const std::uint8_t* data, std::size_t size) const {
        FUZZ_CHECK(ftruncate(m_handle, 0) == 0);
        FUZZ_CHECK(pwrite(m_handle, data, size, 0) == static_cast<ssize_t>(size));
    }
    std::string path() const { return "/proc/self/fd/" + std::to_string(m_handle); }

private:
    int m_handle;
};

kxdrawing::ReadOptions smallLimits() {
    kxdrawing::ReadOptions options;
    options.limits.objects = 2000;
    options.limits.points = 200000;
    return options;
}

/// For a terminal: lines of printable characters.
void checkText(const std::string& text, bool hasLines) {
    for (const char c : text) {
        FUZZ_CHECK(static_cast<unsigned char>(c) >= 0x20 || (hasLines && c == '\n'));
        FUZZ_CHECK(c != 0x7F);
    }
}

void checkRefusal(const ReadResult& result, const std::string& path, std::string_view bytes) {
    FUZZ_CHECK(!result.cancelled);
    FUZZ_CHECK(result.error.file == path && !result.error.found.empty());
    const auto lines = std::count(bytes.begin(), bytes.end(), '\n') + 1;
    FUZZ_CHECK(result.error.line <= lines);
    FUZZ_CHECK(result.error.line >= (bytes.empty() ? 0 : 1));
    const std::string text = result.error.toText();
    FUZZ_CHECK(text.size() < 1000);
    checkText(text, false);
}

void checkLayers(const Drawing& drawing) {
    std::set<kxString> names;
    for (const kxLayer& layer : drawing.layers) {
        FUZZ_CHECK(names.insert(layer.name).second);
    }
    for (const kxObject_ptr& object : drawing.objects) {
        FUZZ_CHECK(names.count(object->GetLayer()) != 0);
    }
}

void checkReport(const Drawing& drawing, std::string_view bytes) {
    const kxdrawing::ImportTotals totals = drawing.report.totals();
    FUZZ_CHECK(totals.entities() == countEntities(bytes));
    FUZZ_CHECK(totals.objects == static_cast<long>(drawing.objects.size()));
    for (const kxdrawing::ImportRow& row : drawing.report.rows()) {
        const bool leftOut = row.outcome == kxdrawing::ImportOutcome::LeftOut;
        FUZZ_CHECK(row.count > 0 && (row.objects == 0) == leftOut);
        FUZZ_CHECK(!row.detail.empty() || row.outcome == kxdrawing::ImportOutcome::Read);
    }
    checkText(drawing.report.toText(), true);
}

void checkObjects(const Drawing& drawing) {
    std::size_t exploded = 0;
    for (const kxObject_ptr& object : drawing.objects) {
        FUZZ_CHECK(object);
        checkNumbers(*object);
        if (exploded < kExploded) {
            checkExplode(*object);
            ++exploded;
        }
    }
}

void checkLoading(const Drawing& drawing) {
    static const kxHostApplication_ptr application = kxCreateHostApplication({});
    static const kxHostDocument_ptr document = application->AddDocument("drawing", true);
    kxdrawing::loadInto(*document, drawing);
    FUZZ_CHECK(document->GetObjects().size() == drawing.objects.size());
    FUZZ_CHECK(document->GetLayers().size() == drawing.layers.size());
    document->SetObjects({});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const MemoryFile file;
    file.write(data, size);
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    static const kxdrawing::ReadOptions options = smallLimits();
    const ReadResult result = kxdrawing::readDxf(file.path(), options);
    if (!result.drawing) {
        checkRefusal(result, file.path(), bytes);
        return 0;
    }
    FUZZ_CHECK(result.drawing->unit == 0 || result.drawing->unit == 1);
    FUZZ_CHECK(std::isfinite(result.drawing->scale) && result.drawing->scale > 0);
    checkReport(*result.drawing, bytes);
    checkLayers(*result.drawing);
    checkObjects(*result.drawing);
    checkLoading(*result.drawing);
    return 0;
}
