#include "BareLoops.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwctype>
#include <memory>

#include "common/Text.h"

namespace korvanta::bench {

namespace {

std::u16string ReadWhole(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
    if (!file || std::fseek(file.get(), 0, SEEK_END) != 0) {
        std::fprintf(stderr, "%s cannot be read.\n", path.c_str());
        std::exit(1);
    }
    const auto bytes = static_cast<std::size_t>(std::ftell(file.get()));
    std::rewind(file.get());
    std::u16string text(bytes / sizeof(char16_t), u'\0');
    text.resize(std::fread(text.data(), sizeof(char16_t), text.size(), file.get()));
    return text;
}

bool ContainsNoCase(const std::u16string& title, const std::u16string& text) {
    return std::search(title.begin(), title.end(), text.begin(), text.end(),
                       [](char16_t a, char16_t b) { return std::towlower(a) == std::towlower(b); }) != title.end();
}

}  // namespace

std::vector<KeptFields> LoadBare(const std::string& file) {
    const std::u16string whole = ReadWhole(file);
    std::vector<KeptFields> accounts;
    std::size_t begin = 1;  // behind the byte-order mark
    while (begin < whole.size()) {
        const std::size_t end = std::min(whole.find(u'\r', begin), whole.size());
        std::u16string_view line(whole.data() + begin, end - begin);
        KeptFields& fields = accounts.emplace_back();
        for (std::u16string& field : fields) {
            const std::size_t separator = line.find(fieldSeparator);
            field = line.substr(0, separator);
            line.remove_prefix(separator == std::u16string_view::npos ? line.size() : separator + 1);
        }
        begin = end + 2;
    }
    return accounts;
}

void SearchBare(const std::vector<KeptTitles>& accounts, const std::u16string& text,
                std::vector<std::uint32_t>& found) {
    found.clear();
    for (std::size_t i = 0; i < accounts.size(); ++i) {
        if (ContainsNoCase(accounts[i].subTitle, text) || ContainsNoCase(accounts[i].mainTitle, text)) {
            found.push_back(static_cast<std::uint32_t>(i));
        }
    }
}

}  // namespace korvanta::bench
