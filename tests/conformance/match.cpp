// Regular-expression search for the harness, in a file of its own (std::regex is slow to
// compile), with each pattern compiled once.
#include <map>
#include <mutex>
#include <regex>
#include <string>

#include "harness.hpp"

namespace conf {

bool matches(const std::string& text, const std::string& pattern) {
    static std::map<std::string, std::regex> cache;
    static std::mutex lock;
    const std::lock_guard<std::mutex> hold(lock);
    auto it = cache.find(pattern);
    if (it == cache.end()) it = cache.emplace(pattern, std::regex(pattern)).first;
    return std::regex_search(text, it->second);
}

} // namespace conf
