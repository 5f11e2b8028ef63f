// The entities, each under the block that owns it: blocks first, then model space and paper space. One table tells for
// each class which field goes out under which code; what a row cannot say is a routine behind it.
import { Dwg_Object_Type as Tipo } from '@mlightcad/libredwg-web';

import { campo, campoComune, colore, eAntico, gradi, maniglia, nomePerPosto, postoInTavola, spessore } from './tabelle.mjs';

const primaR2000 = 22;   // as the library numbers versions
const tridimensionale = 8, rete = 16, facce = 64, chiusaLeggera = 512, generaLeggera = 256;

const proprietari = new Set([Tipo.DWG_TYPE_POLYLINE_2D, Tipo.DWG_TYPE_POLYLINE_3D, Tipo.DWG_TYPE_POLYLINE_MESH,
    Tipo.DWG_TYPE_POLYLINE_PFACE, Tipo.DWG_TYPE_INSERT, Tipo.DWG_TYPE_MINSERT]);

// [code, field, form]: p a point, n a number, g an angle that goes out in degrees, t a text.
const estrusione = [210, 'extrusion', 'p'], altezza = [39, 'thickness', 'n'];
const testo = [[10, 'ins_pt', 'p'], [11, 'alignment_pt', 'p'], [40, 'height', 'n'], [41, 'width_factor', 'n'],
    [50, 'rotation', 'g'], [51, 'oblique_angle', 'g'], [71, 'generation', 'n'], [72, 'horiz_alignment', 'n'], altezza, estrusione];
const angoli = [[10, 'corner1', 'p'], [11, 'corner2', 'p'], [12, 'corner3', 'p'], [13, 'corner4', 'p']];
const quota = [[10, 'def_pt', 'p'], [11, 'text_midpt', 'p'], [1, 'user_text', 't'], [210, 'extrusion', 'p']];

const classi = new Map([
    [Tipo.DWG_TYPE_LINE, ['LINE', [[10, 'start', 'p'], [11, 'end', 'p'], altezza, estrusione]]],
    [Tipo.DWG_TYPE_POINT, ['POINT', [[10, 'x', 'n'], [20, 'y', 'n'], [30, 'z', 'n'], altezza, estrusione]]],
    [Tipo.DWG_TYPE_CIRCLE, ['CIRCLE', [[10, 'center', 'p'], [40, 'radius', 'n'], altezza, estrusione]]],
    [Tipo.DWG_TYPE_ARC, ['ARC', [[10, 'center', 'p'], [40, 'radius', 'n'], [50, 'start_angle', 'g'], [51, 'end_angle', 'g'], altezza, estrusione]]],
    [Tipo.DWG_TYPE_ELLIPSE, ['ELLIPSE', [[10, 'center', 'p'], [11, 'sm_axis', 'p'], [40, 'axis_ratio', 'n'], [41, 'start_angle', 'n'],
        [42, 'end_angle', 'n'], estrusione]]],
    [Tipo.DWG_TYPE_TEXT, ['TEXT', [...testo, [1, 'text_value', 't'], [73, 'vert_alignment', 'n']], stileTesto]],
    [Tipo.DWG_TYPE_ATTRIB, ['ATTRIB', [...testo, [1, 'text_value', 't'], [2, 'tag', 't'], [70, 'flags', 'n'], [74, 'vert_alignment', 'n']], stileTesto]],
    [Tipo.DWG_TYPE_ATTDEF, ['ATTDEF', [...testo, [1, 'default_value', 't'], [2, 'tag', 't'], [3, 'prompt', 't'], [70, 'flags', 'n'],
        [74, 'vert_alignment', 'n']], stileTesto]],
    [Tipo.DWG_TYPE_MTEXT, ['MTEXT', [[10, 'ins_pt', 'p'], [40, 'text_height', 'n'], [41, 'rect_width', 'n'], [71, 'attachment', 'n'],
        [72, 'flow_dir', 'n'], [11, 'x_axis_dir', 'p'], [44, 'linespace_factor', 'n'], [1, 'text', 't'], estrusione], stileTesto]],
    [Tipo.DWG_TYPE_SOLID, ['SOLID', [...angoli, altezza, estrusione], quotaAngoli]],
    [Tipo.DWG_TYPE_TRACE, ['TRACE', [...angoli, altezza, estrusione], quotaAngoli]],
    [Tipo.DWG_TYPE_3DFACE, ['3DFACE', [...angoli, [70, 'invis_flags', 'n']]]],
    [Tipo.DWG_TYPE_INSERT, ['INSERT', [[10, 'ins_pt', 'p'], [50, 'rotation', 'g'], estrusione], inserto]],
    [Tipo.DWG_TYPE_MINSERT, ['INSERT', [[10, 'ins_pt', 'p'], [50, 'rotation', 'g'], [70, 'num_cols', 'n'], [71, 'num_rows', 'n'],
        [44, 'col_spacing', 'n'], [45, 'row_spacing', 'n'], estrusione], inserto]],
    [Tipo.DWG_TYPE_LWPOLYLINE, ['LWPOLYLINE', [[38, 'elevation', 'n'], [43, 'const_width', 'n'], altezza, estrusione], leggera]],
    [Tipo.DWG_TYPE_POLYLINE_2D, ['POLYLINE', [[40, 'start_width', 'n'], [41, 'end_width', 'n'], [75, 'curve_type', 'n'], altezza, estrusione], piana]],
    [Tipo.DWG_TYPE_POLYLINE_3D, ['POLYLINE', [], spaziale]],
    [Tipo.DWG_TYPE_POLYLINE_MESH, ['POLYLINE', [[71, 'num_m_verts', 'n'], [72, 'num_n_verts', 'n']], maglia]],
    [Tipo.DWG_TYPE_POLYLINE_PFACE, ['POLYLINE', [[71, 'numverts', 'n'], [72, 'numfaces', 'n']], poliedro]],
    [Tipo.DWG_TYPE_SPLINE, ['SPLINE', [[71, 'degree', 'n'], [74, 'num_fit_pts', 'n']], curva]],
    [Tipo.DWG_TYPE_RAY, ['RAY', [[10, 'point', 'p'], [11, 'vector', 'p']]]],
    [Tipo.DWG_TYPE_XLINE, ['XLINE', [[10, 'point', 'p'], [11, 'vector', 'p']]]],
    [Tipo.DWG_TYPE_LEADER, ['LEADER', []]],
    [Tipo.DWG_TYPE_MLINE, ['MLINE', []]],
    [Tipo.DWG_TYPE_HATCH, ['HATCH', [[2, 'name', 't']]]],
    [Tipo.DWG_TYPE_REGION, ['REGION', []]],
    [Tipo.DWG_TYPE_3DSOLID, ['3DSOLID', []]],
    [Tipo.DWG_TYPE_BODY, ['BODY', []]],
    [Tipo.DWG_TYPE_TOLERANCE, ['TOLERANCE', []]],
    [Tipo.DWG_TYPE_SHAPE, ['SHAPE', []]],
    [Tipo.DWG_TYPE_VIEWPORT, ['VIEWPORT', []]],
    [Tipo.DWG_TYPE_OLE2FRAME, ['OLE2FRAME', []]],
    [Tipo.DWG_TYPE_IMAGE, ['IMAGE', []]],
    [Tipo.DWG_TYPE_WIPEOUT, ['WIPEOUT', []]],
    [Tipo.DWG_TYPE_MULTILEADER, ['MULTILEADER', []]],
    [Tipo.DWG_TYPE_TABLE, ['ACAD_TABLE', []]],
    [Tipo.DWG_TYPE_PROXY_ENTITY, ['ACAD_PROXY_ENTITY', []]],
    [Tipo.DWG_TYPE_ARCALIGNEDTEXT, ['ARCALIGNEDTEXT', []]],
    ...['ORDINATE', 'LINEAR', 'ALIGNED', 'ANG3PT', 'ANG2LN', 'RADIUS', 'DIAMETER'].map(
        k => [Tipo[`DWG_TYPE_DIMENSION_${k}`], ['DIMENSION', quota, bloccoQuota]]),
]);

// Classes that stand below another entity and go out with it.
const parti = new Set([Tipo.DWG_TYPE_VERTEX_2D, Tipo.DWG_TYPE_VERTEX_3D, Tipo.DWG_TYPE_VERTEX_MESH, Tipo.DWG_TYPE_VERTEX_PFACE,
    Tipo.DWG_TYPE_VERTEX_PFACE_FACE, Tipo.DWG_TYPE_ATTRIB]);

function scriviCampi(c, o, righe) {
    for (const [codice, nome, f] of righe) {
        const v = campo(c.lib, o, nome);
        if (v === undefined || v === null) continue;
        if (f === 'p') {
            if (codice !== 210 || v.x || v.y || v.z) c.flusso.punto(codice, v);   // old files leave the normal out
        } else if (nome === 'width_factor') c.flusso.tag(codice, v || 1);
        else c.flusso.tag(codice, f === 'g' ? v * gradi : v);
    }
}

// Before R13 the common part tells an entity's height; codes of the points that have it, by class.
const angoliSolido = [30, 31, 32, 33];
const quotaAntica = new Map([['CIRCLE', [30]], ['ARC', [30]], ['TEXT', [30]], ['ATTRIB', [30]], ['ATTDEF', [30]], ['INSERT', [30]],
    ['SOLID', angoliSolido], ['TRACE', angoliSolido]]);
const quotaComune = (c, o) => (c.antico && campoComune(c.lib, o, 'elevation_r11')) || 0;

// Before R13 a bit says whether an entity has a colour or a line type of its own; places in tables stand for names.
const suoColore = 1, suaLinea = 2;
function comuneAntico(c, o) {
    const { lib, flusso } = c, flag = campoComune(lib, o, 'flag_r11') ?? 0;
    if (flag & suoColore) flusso.tag(62, (campoComune(lib, o, 'color_r11') ?? 0) & 0xff);
    if (!(flag & suaLinea)) return;
    const posto = postoInTavola(lib, campoComune(lib, o, 'ltype'));
    // The two fixed ones have the highest numbers of the field, which had eight bits before R11.
    const nome = posto === 0x7ffe || posto === -2 || posto === 254 ? 'BYBLOCK' : c.nomi.inOrdine.linee[posto];
    if (nome) flusso.tag(6, nome);
}

function nomeDi(c, rif, nomi) {
    if (!rif) return undefined;
    try {
        const o = c.lib.dwg_ref_get_object(rif);
        if (!o) return undefined;
        return nomi.get(maniglia(c.lib, o)) ?? campo(c.lib, c.lib.dwg_object_to_object_tio(o), 'name');
    } catch {
        return undefined;
    }
}

function stileTesto(c, o) {
    const stile = campo(c.lib, o, 'style');
    c.flusso.tag(7, c.antico ? nomePerPosto(c.lib, stile, c.nomi.inOrdine.stili) ?? c.nomi.inOrdine.stili[0] : nomeDi(c, stile, c.nomi.stili));
    const z = campo(c.lib, o, 'elevation');
    if (z) c.flusso.tag(30, z);
}

// Corners of a solid have two coordinates; its elevation is each one's third.
function quotaAngoli(c, o) {
    const z = campo(c.lib, o, 'elevation');
    if (z) for (const codice of [30, 31, 32, 33]) c.flusso.tag(codice, z);
}

const nomeBlocco = (c, rif) => c.antico ? nomePerPosto(c.lib, rif, c.nomi.inOrdine.blocchi) : nomeDi(c, rif, c.nomiBlocchi);

function bloccoQuota(c, o) {
    c.flusso.tag(2, nomeBlocco(c, campo(c.lib, o, 'block')));
    const f = campo(c.lib, o, 'flag');
    if (f !== undefined) c.flusso.tag(70, f);
}

function inserto(c, o, oggetto) {
    c.flusso.tag(2, nomeBlocco(c, campo(c.lib, o, 'block_header')) ?? '');
    const s = campo(c.lib, o, 'scale');
    if (s) {
        c.flusso.tag(41, s.x);
        c.flusso.tag(42, s.y);
        c.flusso.tag(43, s.z);
    }
    const suoi = c.proprie.get(maniglia(c.lib, oggetto)) ?? [];
    if (suoi.length === 0) return;
    c.flusso.tag(66, 1);
    for (const a of suoi) scriviUna(c, a);
    c.flusso.tag(0, 'SEQEND');
}

function leggera(c, o) {
    const { lib, flusso } = c;
    const f = campo(lib, o, 'flag') ?? 0, n = campo(lib, o, 'num_points') ?? 0;
    flusso.tag(90, n);
    flusso.tag(70, (f & chiusaLeggera ? 1 : 0) | (f & generaLeggera ? 128 : 0));
    if (n <= 0) return;
    const punti = lib.dwg_ptr_to_point2d_array(campo(lib, o, 'points'), n);
    const quante = campo(lib, o, 'num_bulges') ?? 0;
    const frecce = quante > 0 ? lib.dwg_ptr_to_double_array(campo(lib, o, 'bulges'), quante) : [];
    punti.forEach((p, i) => {
        flusso.tag(10, p.x);
        flusso.tag(20, p.y);
        if (frecce[i]) flusso.tag(42, frecce[i]);
    });
}

function vertici(c, tutti, flagDi) {
    for (const v of tutti) {
        c.flusso.tag(0, 'VERTEX');
        c.flusso.tag(8, c.lucido);
        c.flusso.punto(10, v.point);
        if (v.bulge) c.flusso.tag(42, v.bulge);
        c.flusso.tag(70, flagDi(v));
    }
    c.flusso.tag(0, 'SEQEND');
}

function piana(c, o, oggetto) {
    c.flusso.tag(66, 1);
    const z = campo(c.lib, o, 'elevation') || quotaComune(c, o);
    c.flusso.punto(10, { x: 0, y: 0, z });
    c.flusso.tag(70, campo(c.lib, o, 'flag') ?? 0);
    vertici(c, punti(c, oggetto), v => v.flag);
}

function spaziale(c, o, oggetto) {
    c.flusso.tag(66, 1);
    c.flusso.tag(70, (campo(c.lib, o, 'flag') ?? 0) | tridimensionale);
    vertici(c, punti(c, oggetto), v => v.flag | 32);
}

// The library's own lists of vertices lose the last one of some files: what names the polyline as its owner is complete.
function punti(c, oggetto) {
    return (c.proprie.get(maniglia(c.lib, oggetto)) ?? []).map(v => {
        const t = c.lib.dwg_object_to_entity_tio(v);
        const point = campo(c.lib, t, 'point');
        if (point && c.antico) point.z = quotaComune(c, t);
        return { tipo: c.lib.dwg_object_get_fixedtype(v), point, bulge: campo(c.lib, t, 'bulge'), flag: campo(c.lib, t, 'flag') ?? 0 };
    });
}

function maglia(c, o, oggetto) {
    c.flusso.tag(66, 1);
    c.flusso.tag(70, (campo(c.lib, o, 'flag') ?? 0) | rete);
    vertici(c, punti(c, oggetto), v => v.flag | 64);
}

function poliedro(c, o, oggetto) {
    c.flusso.tag(66, 1);
    c.flusso.tag(70, (campo(c.lib, o, 'flag') ?? 0) | facce);
    vertici(c, punti(c, oggetto).filter(v => v.tipo === Tipo.DWG_TYPE_VERTEX_PFACE), () => 192);
}

function curva(c, o) {
    const { lib, flusso } = c;
    const nodi = campo(lib, o, 'num_knots') ?? 0, poli = campo(lib, o, 'num_ctrl_pts') ?? 0, passanti = campo(lib, o, 'num_fit_pts') ?? 0;
    flusso.tag(70, (campo(lib, o, 'closed_b') ? 1 : 0) | (campo(lib, o, 'periodic') ? 2 : 0) | (campo(lib, o, 'rational') ? 4 : 0));
    flusso.tag(72, nodi);
    flusso.tag(73, poli);
    if (nodi > 0) for (const k of lib.dwg_ptr_to_double_array(campo(lib, o, 'knots'), nodi)) flusso.tag(40, k);
    if (poli > 0)
        for (const p of lib.dwg_ptr_to_point4d_array(campo(lib, o, 'ctrl_pts'), poli)) {
            flusso.punto(10, { x: p.x, y: p.y, z: p.z });
            if (p.w) flusso.tag(41, p.w);
        }
    if (passanti > 0) for (const p of lib.dwg_ptr_to_point3d_array(campo(lib, o, 'fit_pts'), passanti)) flusso.punto(11, p);
}

// What every entity has: handle, layer, colour, line type, line weight.
function comune(c, ent, oggetto, nome, o) {
    const { lib, flusso } = c;
    flusso.tag(0, nome);
    flusso.tag(5, maniglia(lib, oggetto).toString(16).toUpperCase());
    if (c.antico) {
        c.lucido = nomePerPosto(lib, campoComune(lib, o, 'layer'), c.nomi.inOrdine.lucidi) ?? '0';
        flusso.tag(8, c.lucido);
        if (c.inCarta) flusso.tag(67, 1);
        comuneAntico(c, o);
        return;
    }
    c.lucido = nomeDi(c, lib.dwg_object_entity_get_layer_object_ref(ent)?.ptr, c.nomi.lucidi)
        ?? c.nomi.lucidi.get(Number(lib.dwg_object_entity_get_layer_object_ref(ent)?.absolute_ref ?? 0)) ?? '0';
    flusso.tag(8, c.lucido);
    if (c.inCarta) flusso.tag(67, 1);
    colore(flusso, lib.dwg_object_entity_get_color_object(ent));
    const linea = lib.dwg_object_entity_get_ltype_object_ref(ent);
    const nomeLinea = linea ? c.nomi.linee.get(Number(linea.absolute_ref || linea.handleref?.value || 0)) : undefined;
    if (nomeLinea) flusso.tag(6, nomeLinea);
    const peso = c.pesi ? spessore(lib.dwg_object_entity_get_line_weight(ent)) : -1;
    if (peso !== -1) flusso.tag(370, peso);
    if (lib.dwg_object_entity_get_invisible(ent)) flusso.tag(60, 1);
}

function scriviUna(c, oggetto) {
    const riga = classi.get(c.lib.dwg_object_get_fixedtype(oggetto));
    const ent = c.lib.dwg_object_to_entity(oggetto), o = c.lib.dwg_object_to_entity_tio(oggetto);
    if (!riga || !ent || !o) return;
    const [nome, campi, coda] = riga;
    comune(c, ent, oggetto, nome, o);
    scriviCampi(c, o, campi);
    const z = quotaComune(c, o);
    if (z) for (const codice of quotaAntica.get(nome) ?? []) c.flusso.tag(codice, z);
    coda?.(c, o, oggetto);
}

// Which block owns what: by the owner's handle, else by the entity's own word of model and paper space.
function perProprietario(c) {
    const { lib, dati, nomi } = c;
    const modello = [...nomi.blocchi].find(([, b]) => /^[*$]model_space$/i.test(b.nome))?.[0];
    const carta = [...nomi.blocchi].find(([, b]) => /^[*$]paper_space$/i.test(b.nome))?.[0];
    const di = new Map(), proprie = new Map();
    const metti = (dove, chi, o) => {
        if (!dove.has(chi)) dove.set(chi, []);
        dove.get(chi).push(o);
    };
    const quanti = lib.dwg_get_num_objects(dati);
    const conParti = new Set();
    let ultimo = 0;   // handle of the last entity that may have parts
    for (let i = 0; i < quanti; ++i) {
        const o = lib.dwg_get_object(dati, i);
        if (!o) continue;
        const tipo = lib.dwg_object_get_fixedtype(o);
        if (!classi.has(tipo) && !parti.has(tipo)) continue;
        const ent = lib.dwg_object_to_entity(o);
        if (!ent) continue;
        const padrone = Number(lib.dwg_object_entity_get_ownerhandle_object(ent)?.absolute_ref ?? 0);
        if (parti.has(tipo)) {
            metti(proprie, conParti.has(padrone) ? padrone : ultimo, o);   // old files tell by the order alone
            continue;
        }
        if (proprietari.has(tipo)) conParti.add(ultimo = maniglia(lib, o));
        const modo = lib.dwg_object_entity_get_entmode(ent);
        const chi = modo === 2 ? modello : modo === 1 ? carta : nomi.blocchi.has(padrone) ? padrone : modello;
        if (chi !== undefined) metti(di, chi, o);
    }
    return { di, proprie, modello };
}

export function entita(lib, dati, flusso, nomi) {
    const versione = lib.dwg_get_version_type(dati).version;
    const c = {
        lib, dati, flusso, nomi, nomiBlocchi: new Map([...nomi.blocchi].map(([n, b]) => [n, b.nome])), lucido: '0', inCarta: false,
        antico: eAntico(lib, dati), pesi: versione >= primaR2000,
    };
    const { di, proprie, modello } = perProprietario(c);
    c.proprie = proprie;
    const inSpazio = b => /^[*$](model|paper)_space/i.test(b.nome);
    flusso.sezione('BLOCKS');
    for (const [numero, b] of nomi.blocchi) {
        if (inSpazio(b)) continue;
        flusso.tag(0, 'BLOCK');
        flusso.tag(8, '0');
        flusso.tag(2, b.nome);
        flusso.tag(70, b.flag & 127);
        flusso.punto(10, b.base);
        for (const o of di.get(numero) ?? []) scriviUna(c, o);
        flusso.tag(0, 'ENDBLK');
    }
    flusso.fineSezione();
    flusso.sezione('ENTITIES');
    for (const o of di.get(modello) ?? []) scriviUna(c, o);
    c.inCarta = true;
    for (const [numero, b] of nomi.blocchi)
        if (numero !== modello && inSpazio(b)) for (const o of di.get(numero) ?? []) scriviUna(c, o);
    flusso.fineSezione();
}
