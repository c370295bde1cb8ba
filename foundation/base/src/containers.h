// The container names of the toolkit: Vector, List and HashMap are the standard containers;
// HashMap hashes with Hash<K>, which is std::hash<K> unless specialised (LiString has its own).
#pragma once

#include "liString.h"

#include <functional>
#include <list>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Zr {

// The primary template, declared in liString.h; its LiString specialisation uses hashFunc.
template <class K>
struct Hash : std::hash<K> {};

template <class T>
using Vector = std::vector<T>;

template <class T>
using List = std::list<T>;

template <class K, class V, class H = Hash<K>, class E = std::equal_to<K>>
using HashMap = std::unordered_map<K, V, H, E>;

template <class K, class H = Hash<K>, class E = std::equal_to<K>>
using HashSet = std::unordered_set<K, H, E>;

} // namespace Zr
