// PROJ by its C interface, loaded when a reference system is first asked for. Only what is called is declared; names,
// types and values are those of proj.h.
#pragma once

#include <cstddef>
#include <string>

namespace tessaro {

namespace proj {

using Oggetto = void*;
struct Coord {
    double x = 0, y = 0, z = 0, t = 0;
};
inline constexpr int avanti = 1, indietro = -1;   // directions
// Kinds of objects.
inline constexpr int geografico2D = 12, geografico3D = 13, proiettato = 15, composto = 16, ingegneria = 18, legato = 19;
inline constexpr int geocentrico = 10, verticale = 14;
inline constexpr int ugualiSalvoAssi = 2;   // equivalence but for the order of geographic axes
inline constexpr int wkt2 = 2;

}   // namespace proj

struct Proj {
    using O = proj::Oggetto;
    O (*proj_context_create)();
    void (*proj_log_func)(O context, void* data, void (*log)(void*, int, const char*));
    int (*proj_context_set_enable_network)(O context, int enable);
    int (*proj_context_errno)(O context);
    const char* (*proj_errno_string)(int error);
    O (*proj_create)(O context, const char* definition);
    O (*proj_destroy)(O object);
    int (*proj_get_type)(O object);
    const char* (*proj_get_name)(O object);
    const char* (*proj_get_id_auth_name)(O object, int index);
    const char* (*proj_get_id_code)(O object, int index);
    const char* (*proj_as_wkt)(O context, O object, int type, const char* const* options);
    int (*proj_is_equivalent_to_with_ctx)(O context, O a, O b, int criterion);
    O(*proj_create_from_name)
    (O context, const char* authority, const char* name, const int* types, std::size_t count, int approximate,
     std::size_t limit, const char* const* options);
    int (*proj_list_get_count)(O list);
    O (*proj_list_get)(O context, O list, int index);
    void (*proj_list_destroy)(O list);
    O (*proj_create_crs_to_crs_from_pj)(O context, O from, O to, O area, const char* const* options);
    O (*proj_normalize_for_visualization)(O context, O operation);
    int (*proj_trans_array)(O operation, int direction, std::size_t count, proj::Coord* coordinates);
    O (*proj_trans_get_last_used_operation)(O operation);
    double (*proj_coordoperation_get_accuracy)(O context, O operation);   // metres; negative when it is not known
};

// Null when the library is not installed or lacks one of these functions; loads it at the first call.
const Proj* CaricaProj();
proj::Oggetto ContestoProj();   // the one context; only with the library

// An object of the library's that is given back at the end of its block.
class OggettoProj {
public:
    OggettoProj() = default;
    explicit OggettoProj(proj::Oggetto oggetto) : o(oggetto) {}
    ~OggettoProj() { poni(nullptr); }
    OggettoProj(const OggettoProj&) = delete;
    OggettoProj& operator=(const OggettoProj&) = delete;
    operator proj::Oggetto() const { return o; }   // NOLINT: it stands for its handle
    void poni(proj::Oggetto altro) {
        if (o != nullptr) CaricaProj()->proj_destroy(o);
        o = altro;
    }

private:
    proj::Oggetto o = nullptr;
};

}   // namespace tessaro
