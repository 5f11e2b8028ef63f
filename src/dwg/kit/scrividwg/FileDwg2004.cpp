// The file of formats 2004 and 2010: named sections, cut into packed pages, found by two maps whose places stand in an
// encrypted header.
#include <cstring>

#include "dwg/kit/scrividwg/CompressioneDwg.h"
#include "dwg/kit/scrividwg/FileDwg.h"

namespace tessaro {

namespace {

constexpr std::uint32_t paginaDati = 0x4163043B, paginaMappaPagine = 0x41630E3B, paginaMappaSezioni = 0x4163003B;
constexpr std::uint32_t maschera = 0x4164536B;   // of a page's header, together with its place
constexpr std::size_t pienoPagina = 0x7400;      // bytes of a page before packing
constexpr std::size_t inizioPagine = 0x100, lunghezzaCifrata = 0x6C;
constexpr std::size_t passo = 0x20;   // pages begin at multiples of it

void aggiungiRLL(std::string& s, std::uint64_t v) {
    aggiungiRL(s, static_cast<std::uint32_t>(v));
    aggiungiRL(s, static_cast<std::uint32_t>(v >> 32));
}

struct PaginaSezione {
    std::uint32_t numero, quanti;
    std::uint64_t da;
};
struct SezioneDwg {
    std::string nome, dati;
    bool compressa = true;
    std::vector<PaginaSezione> pagine;
};

// The pages behind the header, in the order of their numbers.
struct Pagine {
    std::string s;
    std::vector<std::uint32_t> lunghezze;   // of page number i + 1

    [[nodiscard]] std::uint64_t qui() const { return inizioPagine + s.size(); }
    std::uint32_t aggiungi(std::string pagina) {
        pagina.resize((pagina.size() + passo - 1) / passo * passo, '\0');
        s += pagina;
        lunghezze.push_back(static_cast<std::uint32_t>(pagina.size()));
        return static_cast<std::uint32_t>(lunghezze.size());
    }
};

void mettiSezione(Pagine& p, SezioneDwg& z, std::uint32_t numero) {
    for (std::size_t da = 0; da < z.dati.size(); da += pienoPagina) {
        const std::string_view parte = std::string_view(z.dati).substr(da, pienoPagina);
        const std::string corpo = z.compressa ? ComprimiDwg(parte) : std::string(parte);
        const std::uint32_t somma = SommaDwg(corpo, 0);
        const auto testa = [&](std::uint32_t sommaTesta) {
            std::string t;
            for (const std::uint32_t v :
                 {paginaDati, numero, static_cast<std::uint32_t>(corpo.size()), static_cast<std::uint32_t>(pienoPagina),
                  static_cast<std::uint32_t>(da), sommaTesta, somma, 0U})
                aggiungiRL(t, v);
            return t;
        };
        std::string t = testa(SommaDwg(testa(0), somma));
        const std::uint32_t chiave = maschera ^ static_cast<std::uint32_t>(p.qui());
        for (std::size_t i = 0; i < t.size(); ++i)
            t[i] = static_cast<char>(static_cast<unsigned char>(t[i]) ^ (chiave >> (8 * (i % 4)) & 0xFF));
        const std::uint32_t n = p.aggiungi(t + corpo);
        z.pagine.push_back({n, static_cast<std::uint32_t>(corpo.size()), da});
    }
}

std::string paginaSistema(std::uint32_t tipo, const std::string& dati) {
    const std::string corpo = ComprimiDwg(dati);
    const auto testa = [&](std::uint32_t somma) {
        std::string t;
        for (const std::uint32_t v :
             {tipo, static_cast<std::uint32_t>(dati.size()), static_cast<std::uint32_t>(corpo.size()), 2U, somma})
            aggiungiRL(t, v);
        return t;
    };
    return testa(SommaDwg(corpo, SommaDwg(testa(0), 0))) + corpo;
}

std::string mappaSezioni(const std::vector<SezioneDwg>& sezioni) {
    constexpr std::size_t lunghezzaNome = 64;
    std::string m;
    const auto quante = static_cast<std::uint32_t>(sezioni.size());
    for (const std::uint32_t v : {quante, 2U, static_cast<std::uint32_t>(pienoPagina), 0U, quante}) aggiungiRL(m, v);
    for (std::size_t i = 0; i < sezioni.size(); ++i) {
        const SezioneDwg& z = sezioni[i];
        aggiungiRLL(m, z.dati.size());
        for (const std::uint32_t v :
             {static_cast<std::uint32_t>(z.pagine.size()), static_cast<std::uint32_t>(pienoPagina), 1U,
              z.compressa ? 2U : 1U, static_cast<std::uint32_t>(i + 1), 0U})
            aggiungiRL(m, v);
        std::string nome = z.nome;
        nome.resize(lunghezzaNome, '\0');
        m += nome;
        for (const PaginaSezione& p : z.pagine) {
            aggiungiRL(m, p.numero);
            aggiungiRL(m, p.quanti);
            aggiungiRLL(m, p.da);
        }
    }
    return m;
}

std::uint32_t crc32(std::string_view s) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char c : s) {
        crc ^= static_cast<unsigned char>(c);
        for (int k = 0; k < 8; ++k) crc = (crc & 1U) != 0 ? crc >> 1 ^ 0xEDB88320U : crc >> 1;
    }
    return ~crc;
}

// The format's stream of numbers that hides the header.
std::string cifra(std::string s, std::size_t quanti) {
    std::uint32_t seme = 1;
    s.resize(quanti, '\0');
    for (char& c : s) {
        seme = seme * 0x343FD + 0x269EC3;
        c = static_cast<char>(static_cast<unsigned char>(c) ^ (seme >> 16 & 0xFF));
    }
    return s;
}

// The format's number for itself.
constexpr unsigned versioneDi(FormatoDwg f) { return f == FormatoDwg::r2004 ? 0x19 : 0x1D; }

struct Mappe {
    std::uint32_t numeroPagine, numeroSezioni, ultima;
    std::uint64_t dovePagine, fine;
};

std::string intestazioneCifrata(const Mappe& m) {
    const auto parte = [&m](std::uint32_t crc) {
        std::string t("AcFssFcAJMB", 12);
        for (const std::uint32_t v : {0U, static_cast<std::uint32_t>(lunghezzaCifrata), 4U, 0U, 0U, 0U, 1U, m.ultima})
            aggiungiRL(t, v);
        aggiungiRLL(t, m.fine - inizioPagine);   // end of the last page
        aggiungiRLL(t, m.fine);                  // the second copy of this header
        for (const std::uint32_t v : {0U, m.ultima, 0x20U, 0x80U, 0x40U, m.numeroPagine}) aggiungiRL(t, v);
        aggiungiRLL(t, m.dovePagine - inizioPagine);
        for (const std::uint32_t v : {m.numeroSezioni, m.ultima, 0U, crc}) aggiungiRL(t, v);
        return t;
    };
    return parte(crc32(parte(0)));
}

// The page map tells its own length: it grows by whole steps, so a second round is right.
std::string mappaPagine(const Pagine& p, std::uint32_t suoNumero) {
    std::uint32_t lunghezza = 0;
    std::string pagina;
    for (int giro = 0; giro < 3; ++giro) {
        std::string mappa;
        for (std::size_t i = 0; i < p.lunghezze.size(); ++i) {
            aggiungiRL(mappa, static_cast<std::uint32_t>(i + 1));
            aggiungiRL(mappa, p.lunghezze[i]);
        }
        aggiungiRL(mappa, suoNumero);
        aggiungiRL(mappa, lunghezza);
        pagina = paginaSistema(paginaMappaPagine, mappa);
        lunghezza = static_cast<std::uint32_t>((pagina.size() + passo - 1) / passo * passo);
    }
    return pagina;
}

// What stands in the clear at the front; `riassunto` and `anteprima` are the places of those two parts.
std::string inizio(std::string_view sigla, FormatoDwg formato, std::uint32_t riassunto, std::uint32_t anteprima) {
    constexpr unsigned paginaCodici = 30;
    constexpr std::uint32_t doveCifrata = 0x80;
    const bool del2004 = formato == FormatoDwg::r2004;
    const unsigned rilascio = del2004 ? 0 : 6;
    std::string s(sigla);
    s.append(5, '\0');
    s.push_back(static_cast<char>(rilascio));
    s.push_back(3);
    aggiungiRL(s, anteprima);
    s.push_back(static_cast<char>(versioneDi(formato)));
    s.push_back(static_cast<char>(rilascio));
    aggiungiRS(s, paginaCodici);
    s.append(3, '\0');
    for (const std::uint32_t v : {0U, 0U, riassunto, 0U, doveCifrata}) aggiungiRL(s, v);
    s.resize(doveCifrata, '\0');
    return s;
}

}   // namespace

OdError FileDwg2004(const StesuraDwg& st, std::string_view sigla, OdWrFileBuf& file) {
    std::vector<SezioneDwg> sezioni;
    for (ParteDwg& parte : PartiDwg(st, versioneDi(st.formato)))
        sezioni.push_back({parte.nome, std::move(parte.dati), !parte.facoltativa, {}});

    Pagine p;
    for (std::size_t i = 0; i < sezioni.size(); ++i) mettiSezione(p, sezioni[i], static_cast<std::uint32_t>(i + 1));
    const auto postoDi = [&](std::size_t z) {
        std::uint64_t dove = inizioPagine;
        for (std::uint32_t n = 1; n < sezioni[z].pagine.front().numero; ++n) dove += p.lunghezze[n - 1];
        return static_cast<std::uint32_t>(dove + passo);   // behind the page's header
    };
    Mappe m{};
    m.numeroSezioni = p.aggiungi(paginaSistema(paginaMappaSezioni, mappaSezioni(sezioni)));
    m.numeroPagine = m.ultima = m.numeroSezioni + 1;
    m.dovePagine = p.qui();
    p.aggiungi(mappaPagine(p, m.numeroPagine));
    m.fine = p.qui();

    constexpr std::size_t riassunto = 0, anteprima = 1;   // among the parts
    const std::string testa = inizio(sigla, st.formato, postoDi(riassunto), postoDi(anteprima));
    const std::string cifrata = intestazioneCifrata(m);
    file.put(testa);
    file.put(cifra(cifrata, inizioPagine - testa.size()));
    file.put(p.s);
    file.put(cifra(cifrata, lunghezzaCifrata));
    return {};
}

}   // namespace tessaro
