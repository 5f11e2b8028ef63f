// What libdxfrw sees of a DWG file, a JSON object a line: its figures as numbers.
//     node libdxfrw.cjs NODE_MODULES FILE.dwg
const fs = require('node:fs');
const path = require('node:path');

const [modules, file] = process.argv.slice(2);
console.log = () => {};   // the library's own words

const list = l => Array.from({ length: l.size() }, (_, i) => l.get(i));
const degrees = a => a * 180 / Math.PI;

require(path.resolve(modules, '@mlightcad/libdxfrw-web/dist/libdxfrw.js'))().then(lib => {
    const database = new lib.DRW_Database();
    const handler = new lib.DRW_FileHandler();
    handler.database = database;
    const dwg = new lib.DRW_DwgR(new Uint8Array(fs.readFileSync(file)));
    const read = dwg.read(handler, false);
    const out = o => process.stdout.write(`${JSON.stringify(o)}\n`);
    out({ kind: 'read', ok: read, error: dwg.getError().value });
    const type = name => lib.DRW_ETYPE[name];
    for (const e of list(database.mBlock.entities)) {
        const p = e.basePoint;
        if (e.eType === type('LINE')) out({ kind: 'line', at: [p.x, p.y, e.secPoint.x, e.secPoint.y], z: [p.z, e.secPoint.z] });
        else if (e.eType === type('CIRCLE')) out({ kind: 'circle', at: [p.x, p.y, e.radius] });
        else if (e.eType === type('ARC')) out({ kind: 'arc', at: [p.x, p.y, e.radius, degrees(e.startAngle), degrees(e.endAngle)] });
        else if (e.eType === type('TEXT')) out({ kind: 'text', at: [p.x, p.y], text: e.text });
        else if (e.eType === type('POLYLINE')) out({ kind: 'poly', at: list(e.getVertexList()).flatMap(v => [v.basePoint.x, v.basePoint.y]) });
        else out({ kind: 'other', type: e.eType.value ?? e.eType });
    }
});
