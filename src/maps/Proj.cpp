// Finding the library and its functions, once.
#include "maps/Proj.h"

#include <cstddef>
#include <iterator>

#include "platform/Library.h"

namespace tessaro {

namespace {

#define F(nome)                                                                                                        \
    { #nome, offsetof(Proj, nome) }
constexpr LibraryFunction funzioni[] = {
    F(proj_context_create),
    F(proj_log_func),
    F(proj_context_set_enable_network),
    F(proj_context_errno),
    F(proj_errno_string),
    F(proj_create),
    F(proj_destroy),
    F(proj_get_type),
    F(proj_get_name),
    F(proj_get_id_auth_name),
    F(proj_get_id_code),
    F(proj_as_wkt),
    F(proj_is_equivalent_to_with_ctx),
    F(proj_create_from_name),
    F(proj_list_get_count),
    F(proj_list_get),
    F(proj_list_destroy),
    F(proj_create_crs_to_crs_from_pj),
    F(proj_normalize_for_visualization),
    F(proj_trans_array),
    F(proj_trans_get_last_used_operation),
    F(proj_coordoperation_get_accuracy),
};
#undef F
static_assert(std::size(funzioni) * sizeof(void*) == sizeof(Proj), "a function of the table is not looked for");

constinit proj::Oggetto contesto = nullptr;

const Proj* cerca() {
    static Proj p;
    if (!LoadFunctions("TESSARO_PROJ", {"libproj.so.26", "libproj.so.25", "libproj.so.22"}, funzioni, &p))
        return nullptr;
    contesto = p.proj_context_create();
    if (contesto == nullptr) return nullptr;
    p.proj_log_func(contesto, nullptr, [](void*, int, const char*) {});
    p.proj_context_set_enable_network(contesto, 0);
    return &p;
}

}   // namespace

const Proj* CaricaProj() {
    static const Proj* const p = cerca();
    return p;
}

proj::Oggetto ContestoProj() { return CaricaProj() == nullptr ? nullptr : contesto; }

}   // namespace tessaro
