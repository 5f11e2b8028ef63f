// The stream: tags of a 16-bit code and a value whose form the code decides, little-endian, as in a binary DXF.
import fs from 'node:fs';

const segno = 'AutoCAD Binary DXF\r\n\x1a\0';
const pieno = 1 << 20;

// How the value behind a code is stored.
export function forma(codice) {
    if (codice < 10) return 's';
    if (codice < 60) return 'd';
    if (codice < 80) return 'h';
    if (codice >= 90 && codice < 100) return 'i';
    if (codice >= 100 && codice < 110) return 's';
    if (codice >= 110 && codice < 150) return 'd';
    if (codice >= 170 && codice < 180) return 'h';
    if (codice >= 210 && codice < 240) return 'd';
    if (codice >= 270 && codice < 290) return 'h';
    if (codice >= 290 && codice < 300) return 'b';
    if (codice >= 370 && codice < 390) return 'h';
    if (codice >= 420 && codice < 430) return 'i';
    return 's';
}

export class Flusso {
    constructor(uscita = 1) {
        this.uscita = uscita;
        this.buffer = Buffer.allocUnsafe(pieno + 65536);
        this.fine = 0;
        this.fine += this.buffer.write(segno, 0, 'latin1');
    }

    // One tag. A number that is not finite or a value that is missing is left out: the reader's default stands.
    tag(codice, valore) {
        if (valore === undefined || valore === null) return;
        const f = forma(codice);
        if (f !== 's' && !Number.isFinite(Number(valore))) return;
        const b = this.buffer;
        b.writeUInt16LE(codice, this.fine);
        this.fine += 2;
        if (f === 'd') this.fine = b.writeDoubleLE(Number(valore), this.fine);
        else if (f === 'h') this.fine = b.writeInt16LE((Number(valore) << 16) >> 16, this.fine);
        else if (f === 'i') this.fine = b.writeInt32LE(Number(valore) | 0, this.fine);
        else if (f === 'b') this.fine = b.writeUInt8(valore ? 1 : 0, this.fine);
        else this.testo(String(valore));
        if (this.fine >= pieno) this.vuota();
    }

    // UTF-8 up to a zero byte; what a line-oriented reader could not hold becomes what it shows.
    testo(s) {
        const t = Buffer.from(s.replaceAll('\0', '').replace(/\r\n|\r|\n/g, '\\P'), 'utf8');
        if (this.fine + t.length + 1 > this.buffer.length) {
            this.vuota();
            if (t.length + 1 > this.buffer.length) this.buffer = Buffer.allocUnsafe(t.length + pieno);
        }
        this.fine += t.copy(this.buffer, this.fine);
        this.buffer[this.fine++] = 0;
    }

    punto(codice, p) {
        if (!p) return;
        this.tag(codice, p.x);
        this.tag(codice + 10, p.y);
        if (p.z !== undefined) this.tag(codice + 20, p.z);
    }

    sezione(nome) {
        this.tag(0, 'SECTION');
        this.tag(2, nome);
    }

    fineSezione() { this.tag(0, 'ENDSEC'); }

    vuota() {
        for (let da = 0; da < this.fine;) {
            try {
                da += fs.writeSync(this.uscita, this.buffer, da, this.fine - da);
            } catch (e) {
                if (e.code !== 'EAGAIN') throw e;   // a full pipe: the reader is behind
            }
        }
        this.fine = 0;
    }

    chiudi() {
        this.tag(0, 'EOF');
        this.vuota();
    }
}
