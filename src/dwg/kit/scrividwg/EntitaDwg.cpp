// Blocks and their entities.
#include "dwg/kit/scrividwg/StesuraDwg.h"

namespace tessaro {

namespace {

// Where an entity stands: in model space, in paper space, or below an owner that its reference names.
enum class Sta : std::uint8_t { conProprietario = 0, carta = 1, modello = 2 };

struct Posto {
    Sta sta = Sta::modello;
    OdDbHandle proprietario = 0;
    OdDbHandle precedente = 0, seguente = 0;   // formats to 2000 chain the entities of a block
};

void coloreEntita(OggettoDwg& o, const OdCmColor& c) {
    constexpr std::uint32_t colorePieno = 0x8000;   // its red, green and blue follow
    if (o.formato < FormatoDwg::r2004) {
        o.dati.BS(c.indice);
        return;
    }
    if (c.metodo != OdCmColor::byColor) {
        o.dati.BS(c.indice);
        return;
    }
    o.dati.BS(static_cast<std::int32_t>(colorePieno | static_cast<unsigned>(c.indice)));
    o.dati.BL(static_cast<std::int32_t>(0xC2000000U | static_cast<unsigned>(c.red) << 16
                                        | static_cast<unsigned>(c.green) << 8 | c.blue));
}

// The common part. References that are the class' own come behind it.
void comune(const StesuraDwg& s, OggettoDwg& o, const OdDbEntity& e, const Posto& p) {
    BitDwg &d = o.dati, &h = o.riferimenti;
    const bool suoLinea = !e.linetype.isNull() && s.db.linetypes[e.linetype].handle != s.linea("ByLayer");
    d.B(false);   // no picture
    if (o.formato == FormatoDwg::r14) o.segnaLunghezza();
    d.BB(static_cast<unsigned>(p.sta));
    d.BL(0);   // no reactors
    if (o.formato == FormatoDwg::r14) d.B(!suoLinea);
    if (o.formato >= FormatoDwg::r2004) d.B(true);    // no dictionary of its own
    if (o.formato <= FormatoDwg::r2000) d.B(false);   // neighbours are named
    coloreEntita(o, e.color);
    d.BD(1);   // scale of the line type
    if (o.formato >= FormatoDwg::r2000) {
        d.BB(suoLinea ? 3 : 0);
        d.BB(0);   // plot style by layer
    }
    if (o.formato >= FormatoDwg::r2007) {
        d.BB(0);   // material by layer
        d.RC(0);
    }
    if (o.formato >= FormatoDwg::r2010)
        for (int i = 0; i < 3; ++i) d.B(false);   // no visual styles
    d.BS(e.visible ? 0 : 1);
    if (o.formato >= FormatoDwg::r2000) d.RC(NumeroSpessoreDwg(e.lineWeight));

    if (p.sta == Sta::conProprietario) h.H(hPuntaDebole, p.proprietario);
    if (o.formato < FormatoDwg::r2004) h.H(hPossiede, 0);
    const OdDbHandle piano = e.layer.isNull() ? s.db.layers[s.db.header.clayer].handle : s.db.layers[e.layer].handle;
    const auto catena = [&] {
        h.H(hPuntaDebole, p.precedente);
        h.H(hPuntaDebole, p.seguente);
    };
    if (o.formato == FormatoDwg::r2000) catena();
    h.H(hPunta, piano);
    if (suoLinea) h.H(hPunta, s.db.linetypes[e.linetype].handle);
    if (o.formato == FormatoDwg::r14) catena();
}

void spessoreENormale(OggettoDwg& o, double spessore, const OdGeVector3d& n) {
    BitDwg& d = o.dati;
    if (o.formato == FormatoDwg::r14) {
        d.BD(spessore);
        d.BD3(n);
        return;
    }
    d.B(spessore == 0);
    if (spessore != 0) d.BD(spessore);
    const bool asseZ = n.x == 0 && n.y == 0 && n.z == 1;
    d.B(asseZ);
    if (!asseZ) d.BD3(n);
}

void linea(OggettoDwg& o, const OdDbLine& l) {
    BitDwg& d = o.dati;
    if (o.formato == FormatoDwg::r14) {
        d.BD3(l.startPoint);
        d.BD3(l.endPoint);
    } else {
        const bool piana = l.startPoint.z == 0 && l.endPoint.z == 0;
        d.B(piana);
        d.RD(l.startPoint.x);
        d.DD(l.endPoint.x, l.startPoint.x);
        d.RD(l.startPoint.y);
        d.DD(l.endPoint.y, l.startPoint.y);
        if (!piana) {
            d.RD(l.startPoint.z);
            d.DD(l.endPoint.z, l.startPoint.z);
        }
    }
    spessoreENormale(o, l.thickness, l.normal);
}

void testo(const StesuraDwg& s, OggettoDwg& o, const OdDbTextBase& t) {
    BitDwg& d = o.dati;
    const bool aSinistra = t.horizontalMode == 0 && t.verticalMode == 0;
    const OdGePoint3d& allineato = aSinistra ? t.position : t.alignmentPoint;
    if (o.formato == FormatoDwg::r14) {
        d.BD(t.position.z);
        d.RD2(t.position.x, t.position.y);
        d.RD2(aSinistra ? 0 : allineato.x, aSinistra ? 0 : allineato.y);
        d.BD3(t.normal);
        for (const double v : {t.thickness, t.oblique, t.rotation, t.height, t.widthFactor}) d.BD(v);
        o.TV(t.textString);
        for (const int v : {t.textGenerationFlags, t.horizontalMode, t.verticalMode}) d.BS(v);
    } else {
        // A bit each for what has its usual value and is left out.
        const unsigned manca = (t.position.z == 0 ? 1U : 0U) | (aSinistra ? 2U : 0U) | (t.oblique == 0 ? 4U : 0U)
                               | (t.rotation == 0 ? 8U : 0U) | (t.widthFactor == 1 ? 16U : 0U)
                               | (t.textGenerationFlags == 0 ? 32U : 0U) | (t.horizontalMode == 0 ? 64U : 0U)
                               | (t.verticalMode == 0 ? 128U : 0U);
        d.RC(manca);
        if ((manca & 1) == 0) d.RD(t.position.z);
        d.RD2(t.position.x, t.position.y);
        if ((manca & 2) == 0) {
            d.DD(allineato.x, t.position.x);
            d.DD(allineato.y, t.position.y);
        }
        const bool asseZ = t.normal.x == 0 && t.normal.y == 0 && t.normal.z == 1;
        d.B(asseZ);
        if (!asseZ) d.BD3(t.normal);
        d.B(t.thickness == 0);
        if (t.thickness != 0) d.BD(t.thickness);
        if ((manca & 4) == 0) d.RD(t.oblique);
        if ((manca & 8) == 0) d.RD(t.rotation);
        d.RD(t.height);
        if ((manca & 16) == 0) d.RD(t.widthFactor);
        o.TV(t.textString);
        if ((manca & 32) == 0) d.BS(t.textGenerationFlags);
        if ((manca & 64) == 0) d.BS(t.horizontalMode);
        if ((manca & 128) == 0) d.BS(t.verticalMode);
    }
    o.riferimenti.H(hPunta, s.db.textStyles[t.textStyle.isNull() ? s.db.header.textStyle : t.textStyle].handle);
}

// Its vertices take the handles behind the polyline's, the end mark the last.
void polilinea(OggettoDwg& o, const OdDbPolylineBase& p) {
    BitDwg &d = o.dati, &h = o.riferimenti;
    const std::size_t n = p.vertici.size();
    if (p.classe == OdDbClasse::Polyline3d) {
        d.RC(0);   // no curve
        d.RC(p.closed ? 1 : 0);
    } else {
        d.BS(p.closed ? 1 : 0);
        d.BS(0);
        d.BD(p.startWidth);
        d.BD(p.endWidth);
        if (o.formato == FormatoDwg::r14) {
            d.BD(p.thickness);
            d.BD(p.elevation);
            d.BD3(p.normal);
        } else {
            d.B(p.thickness == 0);
            if (p.thickness != 0) d.BD(p.thickness);
            d.BD(p.elevation);
            const bool asseZ = p.normal.x == 0 && p.normal.y == 0 && p.normal.z == 1;
            d.B(asseZ);
            if (!asseZ) d.BD3(p.normal);
        }
    }
    if (o.formato >= FormatoDwg::r2004) {
        d.BL(static_cast<std::int32_t>(n));
        for (std::size_t i = 0; i < n; ++i) h.H(hPossiede, p.handle + 1 + i);
    } else {
        h.H(hPuntaDebole, n == 0 ? 0 : p.handle + 1);
        h.H(hPuntaDebole, n == 0 ? 0 : p.handle + n);
    }
    h.H(hPossiede, p.handleSeqend);
}

void vertici(StesuraDwg& s, const OdDbPolylineBase& p) {
    constexpr unsigned diSpaziale = 32;
    const bool spaziale = p.classe == OdDbClasse::Polyline3d;
    const std::size_t n = p.vertici.size();
    for (std::size_t i = 0; i < n; ++i) {
        const OdDbVertice& v = p.vertici[i];
        const OdDbHandle handle = p.handle + 1 + i;
        OggettoDwg o(s.formato, spaziale ? tipoVertex3d : tipoVertex2d, handle);
        comune(s, o, p, {Sta::conProprietario, p.handle, i == 0 ? 0 : handle - 1, i + 1 == n ? 0 : handle + 1});
        if (spaziale) {
            o.dati.RC(diSpaziale);
            o.dati.BD3(v.punto);
        } else {
            o.dati.RC(0);
            o.dati.BD3(OdGePoint3d{v.punto.x, v.punto.y, p.elevation});
            o.dati.BD(v.startWidth);
            o.dati.BD(v.endWidth);
            o.dati.BD(v.bulge);
            if (s.formato >= FormatoDwg::r2010) o.dati.BL(0);
            o.dati.BD(0);   // tangent
        }
        s.aggiungi(handle, o);
    }
    OggettoDwg fine(s.formato, tipoSeqEnd, p.handleSeqend);
    comune(s, fine, p, {Sta::conProprietario, p.handle, 0, 0});
    s.aggiungi(p.handleSeqend, fine);
}

void leggera(OggettoDwg& o, const OdDbPolyline& p) {
    constexpr int conNormale = 1, conSpessore = 2, conQuota = 8, conFrecce = 16, chiusa = 512;
    BitDwg& d = o.dati;
    bool frecce = false;
    for (const OdDbVertice& v : p.vertici) frecce = frecce || v.bulge != 0;
    const bool asseZ = p.normal.x == 0 && p.normal.y == 0 && p.normal.z == 1;
    const int flag = (asseZ ? 0 : conNormale) | (p.thickness != 0 ? conSpessore : 0) | (p.elevation != 0 ? conQuota : 0)
                     | (frecce ? conFrecce : 0) | (p.closed ? chiusa : 0);
    d.BS(flag);
    if ((flag & conQuota) != 0) d.BD(p.elevation);
    if ((flag & conSpessore) != 0) d.BD(p.thickness);
    if ((flag & conNormale) != 0) d.BD3(p.normal);
    d.BL(static_cast<std::int32_t>(p.vertici.size()));
    if (frecce) d.BL(static_cast<std::int32_t>(p.vertici.size()));
    OdGePoint3d prima;
    for (std::size_t i = 0; i < p.vertici.size(); ++i) {
        const OdGePoint3d& q = p.vertici[i].punto;
        if (i == 0 || o.formato == FormatoDwg::r14) {
            d.RD2(q.x, q.y);
        } else {
            d.DD(q.x, prima.x);
            d.DD(q.y, prima.y);
        }
        prima = q;
    }
    if (frecce)
        for (const OdDbVertice& v : p.vertici) d.BD(v.bulge);
}

unsigned tipoDi(OdDbClasse c) {
    switch (c) {
    case OdDbClasse::Line: return tipoLine;
    case OdDbClasse::Point: return tipoPoint;
    case OdDbClasse::Circle: return tipoCircle;
    case OdDbClasse::Arc: return tipoArc;
    case OdDbClasse::Text: return tipoText;
    case OdDbClasse::Polyline: return tipoLwPolyline;
    case OdDbClasse::Polyline2d: return tipoPolyline2d;
    case OdDbClasse::Polyline3d: return tipoPolyline3d;
    default: return 0;
    }
}

void entita(StesuraDwg& s, const OdDbEntity& e, const Posto& p) {
    OggettoDwg o(s.formato, tipoDi(e.classe), e.handle);
    comune(s, o, e, p);
    if (const auto* l = odCast<OdDbLine>(e)) linea(o, *l);
    if (const auto* q = odCast<OdDbPoint>(e)) {
        o.dati.BD3(q->position);
        spessoreENormale(o, 0, OdGeVector3d::asseZ());
        o.dati.BD(0);
    }
    if (const auto* c = odCast<OdDbCircle>(e)) {
        o.dati.BD3(c->center);
        o.dati.BD(c->radius);
        spessoreENormale(o, c->thickness, c->normal);
    }
    if (const auto* a = odCast<OdDbArc>(e)) {
        o.dati.BD3(a->center);
        o.dati.BD(a->radius);
        spessoreENormale(o, a->thickness, a->normal);
        o.dati.BD(GiroInteroDwg(a->startAngle));
        o.dati.BD(GiroInteroDwg(a->endAngle));
    }
    if (const auto* t = odCast<OdDbText>(e)) testo(s, o, *t);
    if (const auto* l = odCast<OdDbPolyline>(e)) leggera(o, *l);
    const bool conVertici = e.classe == OdDbClasse::Polyline2d || e.classe == OdDbClasse::Polyline3d;
    if (conVertici) polilinea(o, static_cast<const OdDbPolylineBase&>(e));
    s.aggiungi(e.handle, o);
    if (conVertici) vertici(s, static_cast<const OdDbPolylineBase&>(e));
}

struct Limite : OdDbEntityDi<Limite, OdDbClasse::Altra> {};   // begin and end of a block, on layer "0"

void limite(StesuraDwg& s, const OdDbBlockTableRecord& b, Sta sta, bool inizio) {
    const OdDbHandle handle = inizio ? b.handleBlock : b.handleEndBlk;
    OggettoDwg o(s.formato, inizio ? tipoBlock : tipoEndBlk, handle);
    comune(s, o, Limite{}, {sta, b.handle, 0, 0});
    if (inizio) o.TV(b.name);
    s.aggiungi(handle, o);
}

void testata(StesuraDwg& s, const OdDbBlockTableRecord& b, const std::vector<OdDbHandle>& sue) {
    OggettoDwg o(s.formato, tipoBlockHeader, b.handle);
    comuneOggetto(o, s.db.blocks.handle);
    BitDwg &d = o.dati, &h = o.riferimenti;
    o.TV(b.name);
    if (s.formato >= FormatoDwg::r2007) {
        d.BS(0);
    } else {
        d.B(true);
        d.BS(0);
        d.B(false);
    }
    d.B(b.isAnonymous);
    d.B(b.hasAttributes);
    d.B(false);
    d.B(false);
    if (s.formato >= FormatoDwg::r2000) d.B(true);
    if (s.formato >= FormatoDwg::r2004) d.BL(static_cast<std::int32_t>(sue.size()));
    d.BD3(b.origin);
    o.TV("");
    if (s.formato >= FormatoDwg::r2000) {
        d.RC(0);   // inserted nowhere
        o.TV("");
        d.BL(0);
    }
    if (s.formato >= FormatoDwg::r2007) {
        d.BS(0);
        d.B(true);
        d.RC(0);
    }
    h.H(hPunta, 0);
    h.H(hPossiede, b.handleBlock);
    if (s.formato >= FormatoDwg::r2004) {
        for (const OdDbHandle e : sue) h.H(hPossiede, e);
    } else {
        h.H(hPuntaDebole, sue.empty() ? 0 : sue.front());
        h.H(hPuntaDebole, sue.empty() ? 0 : sue.back());
    }
    h.H(hPossiede, b.handleEndBlk);
    if (s.formato >= FormatoDwg::r2000) h.H(hPunta, b.layout.isNull() ? 0 : s.db.layouts[b.layout].handle);
    s.aggiungi(b.handle, o);
}

}   // namespace

bool scriviEntitaDwg(StesuraDwg& s, OdDbHostAppProgressMeter& meter) {
    for (std::size_t i = 0; i < s.db.blocks.record.size(); ++i) {
        const OdDbBlockTableRecord& b = s.db.blocks.record[i];
        const Sta sta = i + 1 == s.db.modelSpace.n   ? Sta::modello
                        : i + 1 == s.db.paperSpace.n ? Sta::carta
                                                     : Sta::conProprietario;
        std::vector<const OdDbEntity*> sue;
        std::vector<OdDbHandle> numeri;
        for (const OdDbEntityPtr& e : b.entita)
            if (!e->erased && tipoDi(e->classe) != 0) {
                sue.push_back(e.get());
                numeri.push_back(e->handle);
            }
        testata(s, b, numeri);
        limite(s, b, sta, true);
        for (std::size_t k = 0; k < sue.size(); ++k) {
            entita(s, *sue[k], {sta, b.handle, k == 0 ? 0 : numeri[k - 1], k + 1 == sue.size() ? 0 : numeri[k + 1]});
            if (!meter.meterProgress()) return false;
        }
        limite(s, b, sta, false);
    }
    return true;
}

}   // namespace tessaro
