// The file of format 2007: named sections cut into packed pages as in 2004, but every page under a code that mends errors,
// and two maps, themselves packed and coded, whose places stand in a header of the same kind. The header and the pages' map
// are there twice.
#include "dwg/kit/scrividwg/Compressione2007.h"
#include "dwg/kit/scrividwg/Controlli2007.h"
#include "dwg/kit/scrividwg/FileDwg.h"

namespace tessaro {

namespace {

constexpr std::size_t inizioPagine = 0x480, inizioTesta = 0x80, lungaTesta = 0x400;
constexpr std::size_t pienoPagina = 0xF800;   // bytes of a page before packing
constexpr std::size_t passo = 0x20, paginaMinima = 0x100;
constexpr std::uint64_t codificata = 4;   // bytes of the blocks are interleaved

void aggiungiRLL(std::string& s, std::uint64_t v) {
    aggiungiRL(s, static_cast<std::uint32_t>(v));
    aggiungiRL(s, static_cast<std::uint32_t>(v >> 32));
}

// Packed, when that makes it shorter.
std::string imballato(std::string_view dati) {
    std::string c = ComprimiDwg2007(dati);
    return c.size() < dati.size() ? c : std::string(dati);
}

std::string finoA(std::string s, std::size_t multiplo) {
    s.resize((s.size() + multiplo - 1) / multiplo * multiplo, '\0');
    return s;
}

struct Pagina2007 {
    std::uint64_t da, quanti, imballati;
    std::uint32_t somma;
    std::uint64_t crc, numero;
};
struct Sezione2007 {
    std::string nome;
    std::uint64_t lunga;
    std::vector<Pagina2007> pagine;
};
// The pages behind the header in the order of the file; numbers count from 1.
struct Pagine2007 {
    std::vector<std::pair<std::uint64_t, std::string>> pagine;

    std::uint64_t aggiungi(std::string dati) {
        const std::uint64_t numero = pagine.size() + 1;
        pagine.emplace_back(numero, std::max(finoA(dati, passo), finoA(std::move(dati), paginaMinima)));
        return numero;
    }
};

// Some readers take every page for a packed one: what is too short to get shorter is filled up with zeros.
constexpr std::size_t riempimento = 128;

Sezione2007 mettiSezione(Pagine2007& p, ParteDwg& parte) {
    if (parte.dati.size() < pienoPagina && ComprimiDwg2007(parte.dati).size() >= parte.dati.size())
        parte.dati.append(riempimento, '\0');
    Sezione2007 z{parte.nome, parte.dati.size(), {}};
    for (std::size_t da = 0; da < parte.dati.size(); da += pienoPagina) {
        const std::string_view dati = std::string_view(parte.dati).substr(da, pienoPagina);
        const std::string corpo = imballato(dati);
        const std::uint64_t numero = p.aggiungi(ConParita2007(finoA(corpo, 8), Parita2007::pagineDati));
        z.pagine.push_back({da, dati.size(), corpo.size(), Somma2007(dati), Crc2007(corpo), numero});
    }
    return z;
}

// A number that names the section too, the same in all files.
std::uint64_t marchio(std::string_view nome) {
    static constexpr struct {
        std::string_view nome;
        std::uint32_t marchio;
    } tutti[] = {{"AcDb:RevHistory", 0x60A205B3}, {"AcDb:AcDbObjects", 0x674C05A9}, {"AcDb:ObjFreeSpace", 0x77E2061F},
                 {"AcDb:Template", 0x4A1404CE},   {"AcDb:Handles", 0x3F6E0450},     {"AcDb:Classes", 0x3F54045F},
                 {"AcDb:AuxHeader", 0x54F0050A},  {"AcDb:Header", 0x32B803D9}};
    for (const auto& m : tutti)
        if (m.nome == nome) return m.marchio;
    return 0;
}

std::string mappaSezioni(const std::vector<Sezione2007>& sezioni) {
    std::string m;
    const auto testata = [&m](std::uint64_t lunga, std::uint64_t marchioSuo, std::uint64_t nome, std::uint64_t pagine) {
        for (const std::uint64_t v : {lunga, std::uint64_t{pienoPagina}, std::uint64_t{0}, marchioSuo, nome,
                                      std::uint64_t{0}, codificata, pagine})
            aggiungiRLL(m, v);
    };
    for (const Sezione2007& z : sezioni) {
        const std::string nome = TestoDwg16(z.nome) + std::string(2, '\0');
        testata(z.lunga, marchio(z.nome), nome.size(), z.pagine.size());
        m += nome;
        for (const Pagina2007& p : z.pagine)
            for (const std::uint64_t v :
                 {p.da, p.quanti, p.numero, p.quanti, p.imballati, std::uint64_t{p.somma}, p.crc})
                aggiungiRLL(m, v);
    }
    testata(0, 0, 0, 0);   // an empty one ends the map
    return m;
}

// A map as it lies in the file, and what its reader must know of it.
struct Mappa2007 {
    std::string pagina;
    std::uint64_t lunga, imballata, crc, crcImballata;
};
Mappa2007 mappa(const std::string& dati) {
    const std::string usato = imballato(dati);
    std::string pagina = ConParita2007(finoA(usato, 8), Parita2007::pagineSistema);
    return {finoA(std::move(pagina), lungaTesta), dati.size(), usato.size(), Crc2007(dati), Crc2007(usato)};
}

struct Indice2007 {
    std::uint64_t fine = 0, secondaTesta = 0, numeroMappa = 0, secondaMappa = 0, quantePagine = 0, numeroSezioni = 0,
                  quanteSezioni = 0;
    Mappa2007 pagine{}, sezioni{};
};

// What the header tells: 34 numbers, the last a check of those before. How other programs make the header's own checks is
// not known, and no reader is known that asks; ours are made as those of the pages are.
std::string numeri(const Indice2007& x) {
    constexpr std::uint64_t lungaPropria = 0x70, ripetuta = 1, versioneFlusso = 0x60100, niente = 0;
    std::string n;
    const auto metti = [&n](std::initializer_list<std::uint64_t> v) {
        for (const std::uint64_t u : v) aggiungiRLL(n, u);
    };
    const Mappa2007 &p = x.pagine, &s = x.sezioni;
    metti({lungaPropria, x.fine, p.crcImballata, ripetuta, niente});
    metti({p.pagina.size(), x.secondaMappa, niente, x.numeroMappa, x.secondaTesta});   // places count behind the header
    metti({p.imballata, p.lunga, x.quantePagine, x.secondaMappa, 0x20, 0x40, p.crc});
    metti({pienoPagina, codificata, 1, x.quanteSezioni});
    metti({s.crc, s.imballata, x.numeroSezioni, x.numeroSezioni, s.lunga, s.crcImballata, ripetuta, niente});
    metti({versioneFlusso, niente, niente, niente});
    aggiungiRLL(n, Crc2007(n + std::string(8, '\0')));
    return n;
}

// The numbers packed, behind their own checks, under the code of the system's pages.
std::string testa(const Indice2007& x) {
    constexpr std::size_t blocchi = 3, utili = 239;
    const std::string corpo = ComprimiDwg2007(numeri(x));
    std::string t;
    aggiungiRLL(t, 0);   // a number drawn for the file, which nothing depends on
    aggiungiRLL(t, Crc2007(corpo));
    aggiungiRL(t, static_cast<std::uint32_t>(corpo.size()));
    aggiungiRL(t, 0);
    std::string tutto;
    aggiungiRLL(tutto, Crc2007(t));
    tutto += t + corpo;
    tutto.resize(blocchi * utili, '\0');
    return finoA(ConParita2007(tutto, Parita2007::pagineSistema), lungaTesta);
}

// The map of pages stands before all others, twice, and tells its own length: it grows by whole steps.
Mappa2007 mappaPagine(const Pagine2007& p, const Indice2007& x) {
    std::size_t lunga = lungaTesta;
    Mappa2007 fatta{};
    for (int giro = 0; giro < 3; ++giro) {
        std::string m;
        const auto riga = [&m](std::uint64_t quanti, std::uint64_t numero) {
            aggiungiRLL(m, quanti);
            aggiungiRLL(m, numero);
        };
        riga(lunga, x.numeroMappa);
        riga(lunga, x.secondaMappa);
        for (const auto& [numero, pagina] : p.pagine) riga(pagina.size(), numero);
        fatta = mappa(m);
        lunga = fatta.pagina.size();
    }
    return fatta;
}

// What every reader finds at the front, whatever the format.
std::string inizio(std::string_view sigla, unsigned versione) {
    constexpr unsigned paginaCodici = 30, rilascio = 0x32;
    constexpr std::size_t doveTesta = 0x28;
    std::string s(sigla);
    s.append(5, '\0');
    s.push_back(static_cast<char>(rilascio));
    s.push_back(3);
    aggiungiRL(s, 0);   // no preview
    s.push_back(static_cast<char>(versione));
    s.push_back(static_cast<char>(rilascio));
    aggiungiRS(s, paginaCodici);
    s.resize(doveTesta, '\0');
    aggiungiRL(s, inizioTesta);
    s.resize(inizioTesta, '\0');
    return s;
}

}   // namespace

OdError FileDwg2007(const StesuraDwg& st, std::string_view sigla, OdWrFileBuf& file) {
    constexpr unsigned versione = 0x1B;
    std::vector<Sezione2007> sezioni;
    Pagine2007 p;
    for (ParteDwg& parte : PartiDwg(st, versione))
        if (!parte.facoltativa) sezioni.push_back(mettiSezione(p, parte));

    Indice2007 x;
    x.sezioni = mappa(mappaSezioni(sezioni));
    x.quanteSezioni = sezioni.size() + 1;
    x.numeroSezioni = p.pagine.size() + 1;
    p.pagine.emplace_back(x.numeroSezioni, x.sezioni.pagina);
    x.numeroMappa = x.numeroSezioni + 1;
    x.secondaMappa = x.numeroMappa + 1;
    x.pagine = mappaPagine(p, x);
    x.quantePagine = p.pagine.size() + 2;
    x.secondaTesta = 2 * x.pagine.pagina.size();
    for (const auto& [numero, pagina] : p.pagine) x.secondaTesta += pagina.size();
    x.fine = inizioPagine + x.secondaTesta + lungaTesta;
    if (x.fine > 0x7FFFFFFF) return {eFileWriteError, 0, {}};

    const std::string t = testa(x);
    file.put(inizio(sigla, versione));
    file.put(t);
    for (int volta = 0; volta < 2; ++volta) file.put(x.pagine.pagina);
    for (const auto& [numero, pagina] : p.pagine) file.put(pagina);
    file.put(t);
    return {};
}

}   // namespace tessaro
