// The drawing's entry, and what PROJ knows of systems and of the ways between them.
#include "maps/SistemaRiferimento.h"

#include <algorithm>
#include <cmath>

#include "maps/Frasi.h"
#include "model/Estensioni.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr char versione = 1;
constexpr std::size_t testoMassimo = 64 * 1024;

bool leggiTesto(std::string_view& resto, std::string& testo) {
    if (resto.size() < 4) return false;
    std::size_t lungo = 0;
    for (std::size_t i = 4; i-- > 0;) lungo = lungo << 8 | static_cast<unsigned char>(resto[i]);
    resto.remove_prefix(4);
    if (lungo > testoMassimo || lungo > resto.size()) return false;
    testo = resto.substr(0, lungo);
    resto.remove_prefix(lungo);
    return testo.find('\0') == std::string::npos;
}

SistemiDisegno letti(std::string_view voce) {
    SistemiDisegno s;
    if (voce.empty() || voce.front() != versione) return s;
    voce.remove_prefix(1);
    if (!leggiTesto(voce, s.disegno) || !leggiTesto(voce, s.secondo) || !leggiTesto(voce, s.elenchi)) return {};
    return s;
}

// "3003" is EPSG's.
std::string definizione(std::string_view testo) {
    const auto fuori = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
    while (!testo.empty() && fuori(testo.front())) testo.remove_prefix(1);
    while (!testo.empty() && fuori(testo.back())) testo.remove_suffix(1);
    const bool numero = !testo.empty() && testo.size() <= 9
                        && std::all_of(testo.begin(), testo.end(), [](char c) { return c >= '0' && c <= '9'; });
    return (numero ? "EPSG:" : "") + std::string(testo);
}

proj::Oggetto crea(std::string_view testo) {
    const Proj* const p = CaricaProj();
    const std::string d = definizione(testo);
    if (p == nullptr || d.empty() || d.size() > testoMassimo) return nullptr;
    return p->proj_create(ContestoProj(), d.c_str());
}

SistemaTrovato descrivi(proj::Oggetto o) {
    const Proj& p = *CaricaProj();
    SistemaTrovato s;
    const char* const nome = p.proj_get_name(o);
    const char* const autorita = p.proj_get_id_auth_name(o, 0);
    const char* const codice = p.proj_get_id_code(o, 0);
    s.nome = nome != nullptr ? nome : "";
    if (autorita != nullptr && codice != nullptr) s.codice = std::string(autorita) + ':' + codice;
    const int tipo = p.proj_get_type(o);
    s.geografico = tipo == proj::geografico2D || tipo == proj::geografico3D;
    s.usabile = s.geografico || tipo == proj::proiettato || tipo == proj::composto || tipo == proj::legato;
    return s;
}

}   // namespace

const SistemiDisegno& SistemiDelDisegno() {
    static SistemiDisegno s;
    static std::string tenuta;
    if (const std::string_view voce = Estensione(estRiferimento); voce != tenuta) {
        tenuta = voce;
        s = letti(voce);
    }
    return s;
}

bool PoniSistemi(const SistemiDisegno& s) {
    if (s.disegno.empty() && s.secondo.empty() && s.elenchi.empty()) return PoniEstensione(estRiferimento, {});
    std::string voce(1, versione);
    for (const std::string* testo : {&s.disegno, &s.secondo, &s.elenchi}) {
        if (testo->size() > testoMassimo) return false;
        for (int i = 0; i < 4; ++i) voce += static_cast<char>(testo->size() >> (8 * i) & 0xFF);
        voce += *testo;
    }
    return PoniEstensione(estRiferimento, std::move(voce));
}

bool TrovaSistema(std::string_view testo, SistemaTrovato& s) {
    const OggettoProj o(crea(testo));
    if (o == nullptr) return false;
    s = descrivi(o);
    return s.usabile;
}

std::vector<SistemaTrovato> CercaSistemi(std::string_view parole, std::size_t massimi) {
    std::vector<SistemaTrovato> trovati;
    const Proj* const p = CaricaProj();
    if (p == nullptr || parole.empty()) return trovati;
    static constexpr int tipi[] = {proj::proiettato, proj::geografico2D};
    const proj::Oggetto lista = p->proj_create_from_name(ContestoProj(), nullptr, std::string(parole).c_str(), tipi,
                                                         std::size(tipi), 1, massimi, nullptr);
    if (lista == nullptr) return trovati;
    const int n = p->proj_list_get_count(lista);
    for (int i = 0; i < n; ++i) {
        const OggettoProj o(p->proj_list_get(ContestoProj(), lista, i));
        if (o != nullptr) trovati.push_back(descrivi(o));
    }
    p->proj_list_destroy(lista);
    return trovati;
}

bool StessoSistema(const std::string& a, const std::string& b) {
    if (a == b) return !a.empty();
    const OggettoProj primo(crea(a)), secondo(crea(b));
    if (primo == nullptr || secondo == nullptr) return false;
    return CaricaProj()->proj_is_equivalent_to_with_ctx(ContestoProj(), primo, secondo, proj::ugualiSalvoAssi) != 0;
}

std::string WktDi(const std::string& testo) {
    const OggettoProj o(crea(testo));
    const char* const wkt = o == nullptr ? nullptr : CaricaProj()->proj_as_wkt(ContestoProj(), o, proj::wkt2, nullptr);
    return wkt == nullptr ? std::string() : std::string(wkt);
}

std::string FusoUTM(double longitudine, double latitudine) {
    const int zona = std::clamp(static_cast<int>(std::floor((longitudine + 180) / 6)) + 1, 1, 60);
    return "EPSG:" + std::to_string((latitudine < 0 ? 32700 : 32600) + zona);
}

bool FraSistemi::prepara(const std::string& da, const std::string& a, std::string& motivo) {
    operazione.poni(nullptr);
    const Proj* const p = CaricaProj();
    if (p == nullptr) {
        motivo = Frase(FraseMappe::senzaProj);
        return false;
    }
    const OggettoProj primo(crea(da)), secondo(crea(a));
    for (const auto& [o, testo] : {std::pair{&primo, &da}, std::pair{&secondo, &a}}) {
        if (*o != nullptr) continue;
        motivo = Frase(FraseMappe::sistemaNonTrovato, Utf8ToMac(testo->substr(0, 80)));
        return false;
    }
    const OggettoProj via(p->proj_create_crs_to_crs_from_pj(ContestoProj(), primo, secondo, nullptr, nullptr));
    if (via != nullptr) operazione.poni(p->proj_normalize_for_visualization(ContestoProj(), via));
    if (operazione == nullptr) motivo = Utf8ToMac(p->proj_errno_string(p->proj_context_errno(ContestoProj())));
    return operazione != nullptr;
}

bool FraSistemi::avanti(puntot* punti, std::size_t quanti) { return porta(punti, quanti, proj::avanti); }
bool FraSistemi::indietro(puntot* punti, std::size_t quanti) { return porta(punti, quanti, proj::indietro); }

bool FraSistemi::porta(puntot* punti, std::size_t quanti, int verso) {
    if (!pronto()) return false;
    constexpr std::size_t insieme = 512;
    std::array<proj::Coord, insieme> c;
    bool tutti = true;
    for (std::size_t da = 0; da < quanti; da += insieme) {
        const std::size_t n = std::min(insieme, quanti - da);
        for (std::size_t i = 0; i < n; ++i) c[i] = {punti[da + i].x, punti[da + i].y, 0, HUGE_VAL};
        CaricaProj()->proj_trans_array(operazione, verso, n, c.data());
        for (std::size_t i = 0; i < n; ++i) {
            punti[da + i].x = c[i].x;
            punti[da + i].y = c[i].y;
            tutti = tutti && std::isfinite(c[i].x) && std::isfinite(c[i].y);
        }
    }
    return tutti;
}

bool FraSistemi::avanti(double& x, double& y) {
    puntot p{x, y, 0};
    const bool buono = avanti(&p, 1);
    x = p.x;
    y = p.y;
    return buono;
}

double FraSistemi::accuratezza() const {
    if (!pronto()) return -1;
    const Proj& p = *CaricaProj();
    const OggettoProj usata(p.proj_trans_get_last_used_operation(operazione));
    return usata == nullptr ? -1 : p.proj_coordoperation_get_accuracy(ContestoProj(), usata);
}

}   // namespace tessaro
