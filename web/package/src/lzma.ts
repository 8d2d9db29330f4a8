/** Bits of a range coder whose probabilities adapt, as the LZMA format has them. */
class RangeDecoder {
    private range = 0xffffffff;
    private code = 0;

    constructor(
        private readonly bytes: Uint8Array,
        private at: number,
    ) {
        this.at += 1;
        for (let i = 0; i < 4; ++i) this.code = ((this.code << 8) | this.next()) >>> 0;
    }

    private next(): number {
        return this.bytes[this.at++] ?? 0;
    }

    private normalize(): void {
        if (this.range >>> 0 < 0x1000000) {
            this.range = (this.range << 8) >>> 0;
            this.code = ((this.code << 8) | this.next()) >>> 0;
        }
    }

    bit(probabilities: Uint16Array, index: number): number {
        const probability = probabilities[index]!;
        const bound = (this.range >>> 11) * probability;
        let bit = 0;
        if (this.code < bound) {
            this.range = bound;
            probabilities[index] = probability + ((2048 - probability) >>> 5);
        } else {
            this.range = (this.range - bound) >>> 0;
            this.code = (this.code - bound) >>> 0;
            probabilities[index] = probability - (probability >>> 5);
            bit = 1;
        }
        this.normalize();
        return bit;
    }

    direct(count: number): number {
        let value = 0;
        for (; count > 0; --count) {
            this.range = this.range >>> 1;
            const bit = this.code >= this.range ? 1 : 0;
            if (bit === 1) this.code = (this.code - this.range) >>> 0;
            value = (value << 1) | bit;
            this.normalize();
        }
        return value >>> 0;
    }

    tree(probabilities: Uint16Array, offset: number, bits: number): number {
        let node = 1;
        for (let i = 0; i < bits; ++i) node = (node << 1) | this.bit(probabilities, offset + node);
        return node - (1 << bits);
    }

    reverseTree(probabilities: Uint16Array, offset: number, bits: number): number {
        let node = 1;
        let value = 0;
        for (let i = 0; i < bits; ++i) {
            const bit = this.bit(probabilities, offset + node);
            node = (node << 1) | bit;
            value |= bit << i;
        }
        return value;
    }
}

const fresh = (size: number): Uint16Array => new Uint16Array(size).fill(1024);

class LengthDecoder {
    private readonly choice = fresh(2);
    private readonly low = fresh(16 << 3);
    private readonly middle = fresh(16 << 3);
    private readonly high = fresh(256);

    read(coder: RangeDecoder, position: number): number {
        if (coder.bit(this.choice, 0) === 0) return 2 + coder.tree(this.low, position << 3, 3);
        if (coder.bit(this.choice, 1) === 0) return 10 + coder.tree(this.middle, position << 3, 3);
        return 18 + coder.tree(this.high, 0, 8);
    }
}

/** Distances of matches: a slot, then bits of its own. */
class DistanceDecoder {
    private readonly slots = fresh(4 << 6);
    private readonly special = fresh(128);
    private readonly aligned = fresh(16);

    read(coder: RangeDecoder, length: number): number {
        const slot = coder.tree(this.slots, Math.min(length - 2, 3) << 6, 6);
        if (slot < 4) return slot;
        const bits = (slot >>> 1) - 1;
        const base = (2 | (slot & 1)) << bits;
        if (slot < 14) return base + coder.reverseTree(this.special, base - slot, bits);
        const middle = coder.direct(bits - 4) * 16;
        return (base >>> 0) + middle + coder.reverseTree(this.aligned, 0, 4);
    }
}

/** The bytes of a file in the format .lzma, whose header has their number. Throws a RangeError if the file is damaged. */
export function decodeLzma(file: Uint8Array): Uint8Array {
    const view = new DataView(file.buffer, file.byteOffset, file.byteLength);
    if (file.length < 18) throw new RangeError('too short for .lzma');
    const packed = view.getUint8(0);
    const literalContext = packed % 9;
    const literalPosition = Math.floor(packed / 9) % 5;
    const positionMask = (1 << Math.floor(packed / 45)) - 1;
    const size = view.getUint32(9, true) === 0 ? view.getUint32(5, true) : 0xffffffff;
    // The encoder writes no size if it reads from a pipe: then an end mark follows the last byte.
    let out = new Uint8Array(size === 0xffffffff ? 1 << 20 : size);
    const coder = new RangeDecoder(file, 13);
    const literals = fresh(0x300 << (literalContext + literalPosition));
    const isMatch = fresh(12 << 4);
    const isRepeat = fresh(12);
    const isNotFirst = fresh(12);
    const isLong = fresh(12 << 4);
    const isNotSecond = fresh(12);
    const isNotThird = fresh(12);
    const lengths = new LengthDecoder();
    const repeatLengths = new LengthDecoder();
    const distances = new DistanceDecoder();
    const recent = [0, 0, 0, 0];
    let state = 0;
    let at = 0;

    const put = (byte: number): void => {
        if (at === out.length) {
            if (size !== 0xffffffff) throw new RangeError('damaged .lzma');
            const larger = new Uint8Array(2 * out.length);
            larger.set(out);
            out = larger;
        }
        out[at++] = byte;
    };
    const literal = (): void => {
        const previous = at > 0 ? out[at - 1]! : 0;
        const context = ((at & ((1 << literalPosition) - 1)) << literalContext) + (previous >>> (8 - literalContext));
        const offset = 0x300 * context;
        let symbol = 1;
        if (state >= 7) {
            let match = out[at - recent[0]! - 1] ?? 0;
            do {
                const bit = (match >>> 7) & 1;
                match <<= 1;
                const read = coder.bit(literals, offset + ((1 + bit) << 8) + symbol);
                symbol = (symbol << 1) | read;
                if (bit !== read) break;
            } while (symbol < 0x100);
        }
        while (symbol < 0x100) symbol = (symbol << 1) | coder.bit(literals, offset + symbol);
        put(symbol & 0xff);
        state = state < 4 ? 0 : state < 10 ? state - 3 : state - 6;
    };
    /** The distance of a repeated match moves to the front; returns its length. */
    const repeat = (position: number): number => {
        if (coder.bit(isNotFirst, state) === 0) {
            if (coder.bit(isLong, (state << 4) + position) === 0) {
                state = state < 7 ? 9 : 11;
                return 1;
            }
        } else {
            const place = coder.bit(isNotSecond, state) === 0 ? 1 : coder.bit(isNotThird, state) === 0 ? 2 : 3;
            recent.unshift(...recent.splice(place, 1));
        }
        const length = repeatLengths.read(coder, position);
        state = state < 7 ? 8 : 11;
        return length;
    };

    while (at < size) {
        const position = at & positionMask;
        if (coder.bit(isMatch, (state << 4) + position) === 0) {
            literal();
            continue;
        }
        let length: number;
        if (coder.bit(isRepeat, state) === 1) {
            length = repeat(position);
        } else {
            length = lengths.read(coder, position);
            state = state < 7 ? 7 : 10;
            const distance = distances.read(coder, length);
            if (distance === 0xffffffff) break; // the end mark
            recent.unshift(distance);
            recent.pop();
        }
        const distance = recent[0]! + 1;
        if (distance > at) throw new RangeError('damaged .lzma');
        for (; length > 0; --length) put(out[at - distance]!);
    }
    return out.subarray(0, at);
}
