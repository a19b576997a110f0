#pragma once
// The benchmark table, generated the same way by every peer (bench/peers/recordset_peers.py
// repeats these formulas): nombre text(40), ciudad text(25), codigo integer, importe
// numeric(12,2), fecha date, activo flag.

#include <array>
#include <cstdint>
#include <string>

namespace zlx::bench {

constexpr int kRows = 1000000;

inline const std::array<const char*, 8> kSurnames = {"GARCIA", "LOPEZ", "GARRIDO", "MARTINEZ",
                                                     "PEREZ",  "GOMEZ", "SANCHEZ", "DIAZ"};
inline const std::array<const char*, 10> kCities = {"Madrid",   "Sevilla", "Bilbao", "Valencia",
                                                    "Zaragoza", "Malaga",  "Murcia", "Palma",
                                                    "Vigo",     "Gijon"};

inline std::string Name(int i) {
    return std::string(kSurnames[i % 8]) + " " + std::to_string(i);
}
inline const char* City(int i) {
    return kCities[(i * 7) % 10];
}
inline std::int64_t AmountCents(int i) {
    return (static_cast<std::int64_t>(i) * 37) % 100000;
}
inline int DayOffset(int i) {
    return i % 3650;
} // days after 2015-01-01
inline bool Flag(int i) {
    return i % 2 == 1;
}

} // namespace zlx::bench
