/**
 * Properties of water and steam after the 1967 IFC Formulation for Industrial Use (IFC-67), by the C++ library ktl compiled
 * to WebAssembly: the same bits as the native library.
 *
 * Units: bar, degC, m3/kg, kJ/kg, kJ/(kg K), kg/kg; `ktl.lists.properties` has those of all properties. Range: 0.01 to
 * 800 degC, 0.006112444 to 1000 bar.
 *
 * @example
 * const ktl = await load();
 * const state = ktl.state('ph', 100, 2800);
 * console.log(state.status === 'solved' ? state.properties.t : state.sentence);
 */
import { compileModule, instantiate, type Exports } from './module.js';
import type { Letter, Lists, PairName, PropertyName, StatusName } from './names.js';

export * from './names.js';
export { compileModule } from './module.js';

export type Properties = Readonly<Record<PropertyName, number>>;

/** A state. What it does not have is NaN. */
export interface State {
    readonly status: StatusName;
    /** What the status says, in English. */
    readonly sentence: string;
    readonly properties: Properties;
    /** Both saturated phases of a mixture; null in one phase. */
    readonly liquid: Properties | null;
    readonly vapour: Properties | null;
    /** N/m, of a mixture; otherwise NaN. */
    readonly surfaceTension: number;
}

export interface Batch {
    /** A column for each wanted property. */
    readonly columns: Readonly<Partial<Record<PropertyName, Float64Array>>>;
    /** The number of the status of each row: its place in `lists.statuses`. 0 is solved. */
    readonly status: Uint8Array;
    readonly solved: number;
}

/** A value that was read, in the unit of ktl, or why it is none. */
export type Reading = { readonly value: number } | { readonly error: string };

/** Where the two values of a pair are in a table, and in which units. */
export type FoundColumns =
    | { readonly first: number; readonly second: number; readonly first_unit: string; readonly second_unit: string }
    | { readonly error: string };

/** A text, or a number as it is shown and as it is. */
export type Cell = string | readonly [shown: string, value: number];

export interface ReportTable {
    readonly name: 'points' | 'sections' | 'totals' | 'shares';
    readonly title: string;
    readonly columns: readonly string[];
    readonly rows: readonly (readonly Cell[])[];
}

/** A plant test after IFC-67 and IAPWS-IF97, as `ktl compare` shows it; differences are IF97 less 1967. */
export type Comparison =
    | { readonly complete: boolean; readonly tables: readonly ReportTable[]; readonly notes: readonly string[] }
    | { readonly error: string };

/** The temperature scale on which the 1967 formulation is given its temperatures. */
export type Scale = 90 | 68 | 48;

/** The charts: enthalpy over entropy, temperature over entropy, pressure over enthalpy, pressure over volume, p over t. */
export const presets = ['hs', 'ts', 'ph', 'pv', 'pt'] as const;
export type Preset = (typeof presets)[number];
/** Limits of a picture in the units of ktl. */
export type Window = readonly [left: number, right: number, bottom: number, top: number];

/** A part of a line of a chart. */
export interface ChartLine {
    /** The property that is constant along it; x with the values 0 and 1 for the dome. */
    readonly held: PropertyName;
    readonly value: number;
    readonly dome: boolean;
    /** x, y, x, y and so on, in mm from the lower left corner. */
    readonly points: Float64Array;
}

/** A text beside a line: its middle in mm, and the direction of reading. */
export interface ChartLabel {
    readonly text: string;
    readonly x: number;
    readonly y: number;
    readonly dx: number;
    readonly dy: number;
    readonly held: PropertyName;
}

export interface Chart {
    readonly x: PropertyName;
    readonly y: PropertyName;
    readonly xLog: boolean;
    readonly yLog: boolean;
    readonly window: Window;
    /** Size of the picture, mm. */
    readonly size: readonly [width: number, height: number];
    readonly lines: readonly ChartLine[];
    readonly labels: readonly ChartLabel[];
}

type RawLabel = Omit<ChartLabel, 'held'> & { held: number };

export class Ktl {
    readonly lists: Lists;
    private readonly block: number;
    private readonly pairs = new Map<string, number>();
    private readonly numbers = new Map<string, number>();

    constructor(private readonly wasm: Exports) {
        wasm.ktl_lists();
        this.lists = this.answer() as Lists;
        this.block = wasm.ktl_block();
        this.lists.pairs.forEach((pair, k) => this.pairs.set(pair.name, k));
        this.lists.properties.forEach((property, k) => this.numbers.set(property.name, k));
    }

    /** The state with both values, in the order of the pair's letters. Of several states that have both, the one of that number. */
    state(pair: PairName, a: number, b: number, number = 0): State {
        return this.taken(this.wasm.ktl_state(this.pairNumber(pair), a, b, number));
    }

    /** How many states have both values; 0 if there is none. */
    stateCount(pair: PairName, a: number, b: number): number {
        return this.wasm.ktl_state_count(this.pairNumber(pair), a, b);
    }

    /** The state after the formulation of 1997, for pt, ph, ps, px, tx and hs; others have the status no_state. */
    stateIf97(pair: PairName, a: number, b: number): State {
        return this.taken(this.wasm.ktl_state_if97(this.pairNumber(pair), a, b));
    }

    /**
     * The states of columns of values. Throws a RangeError if the columns differ in length.
     * @param between called after each block with the rows done; if it returns false the rows not yet done are cancelled.
     */
    batch(
        pair: PairName,
        a: Float64Array,
        b: Float64Array,
        wanted: readonly PropertyName[],
        between?: (done: number) => boolean,
    ): Batch {
        if (a.length !== b.length) throw new RangeError('the columns differ in length');
        const number = this.pairNumber(pair);
        const columns: Partial<Record<PropertyName, Float64Array>> = {};
        let mask = 0;
        for (const name of wanted) {
            mask |= 1 << this.propertyNumber(name);
            columns[name] = new Float64Array(a.length).fill(NaN);
        }
        const cancelled = this.lists.statuses.findIndex((row) => row.name === 'cancelled');
        const status = new Uint8Array(a.length).fill(cancelled);
        let solved = 0;
        for (let begin = 0; begin < a.length; begin += this.block) {
            const rows = Math.min(this.block, a.length - begin);
            this.column(0).set(a.subarray(begin, begin + rows));
            this.column(1).set(b.subarray(begin, begin + rows));
            solved += this.wasm.ktl_batch(number, rows, mask >>> 0);
            for (const name of wanted)
                columns[name]!.set(this.column(2 + this.propertyNumber(name)).subarray(0, rows), begin);
            status.set(this.column(2 + this.lists.properties.length).subarray(0, rows), begin);
            if (between && !between(begin + rows)) break;
        }
        return { columns, status, solved };
    }

    /**
     * Reads a value as people write it: "16,5 MPa", "811 K", "2 800".
     * @param atmosphere bar, for gauge pressures, which are refused without it
     */
    read(letter: Letter, text: string, atmosphere = -1): Reading {
        this.give(text);
        if (this.wasm.ktl_read(this.propertyNumber(letter), atmosphere) === 0) return this.answer() as { error: string };
        return { value: this.column(0)[0]! };
    }

    /** Finds the columns of a pair by the names in the header of a table: "p", "P_bar", "pressure [MPa]". */
    findColumns(header: readonly string[], pair: PairName, atmosphere = -1): FoundColumns {
        this.give(header.map((name) => name.replaceAll('\n', ' ') + '\n').join(''));
        this.wasm.ktl_find_columns(this.pairNumber(pair), atmosphere);
        return this.answer() as FoundColumns;
    }

    /** Converts columns of a table, in place, from the units that the last findColumns() found. */
    convert(a: Float64Array, b: Float64Array): void {
        for (let begin = 0; begin < a.length; begin += this.block) {
            const end = Math.min(begin + this.block, a.length);
            this.column(0).set(a.subarray(begin, end));
            this.column(1).set(b.subarray(begin, end));
            this.wasm.ktl_convert(end - begin);
            a.set(this.column(0).subarray(0, end - begin), begin);
            b.set(this.column(1).subarray(0, end - begin), begin);
        }
    }

    /** A plant test, a CSV text as `ktl compare` reads it, after both formulations. */
    compare(csv: string, scale: Scale = 90): Comparison {
        this.give(csv);
        this.wasm.ktl_compare(scale === 68 ? 1 : scale === 48 ? 2 : 0);
        return this.answer() as Comparison;
    }

    /** The lines and labels of a chart of width by height mm, for its own window or the given one. */
    chart(preset: Preset, width: number, height: number, window?: Window): Chart | { readonly error: string } {
        const [left, right, bottom, top] = window ?? [NaN, NaN, NaN, NaN];
        const made = this.wasm.ktl_chart(presets.indexOf(preset), width, height, left, right, bottom, top);
        const answer = this.answer();
        if (made === 0) return answer as { error: string };
        const head = answer as { x: number; y: number; x_log: boolean; y_log: boolean; window: Window; labels: RawLabel[] };
        const name = (number: number): PropertyName => this.lists.properties[number]!.name;
        const numbers = new Float64Array(this.wasm.memory.buffer, this.wasm.ktl_numbers(), this.wasm.ktl_numbers_size());
        const lines: ChartLine[] = [];
        for (let at = 0; at < numbers.length; ) {
            const [family, held, value, count] = numbers.subarray(at, at + 4) as unknown as [number, number, number, number];
            at += 4 + 2 * count;
            lines.push({ held: name(held), value, dome: family < 0, points: numbers.slice(at - 2 * count, at) });
        }
        const labels = head.labels.map((label) => ({ ...label, held: name(label.held) }));
        const { window: shown, x_log: xLog, y_log: yLog } = head;
        return { x: name(head.x), y: name(head.y), xLog, yLog, window: shown, size: [width, height], lines, labels };
    }

    /** The number of a pair in `lists.pairs`. Throws a RangeError if there is none of that name. */
    private pairNumber(name: string): number {
        const number = this.pairs.get(name);
        if (number === undefined) throw new RangeError(`no pair ${name}`);
        return number;
    }

    private propertyNumber(name: string): number {
        const number = this.numbers.get(name);
        if (number === undefined) throw new RangeError(`no property ${name}`);
        return number;
    }

    private column(number: number): Float64Array {
        return new Float64Array(this.wasm.memory.buffer, this.wasm.ktl_columns() + 8 * number * this.block, this.block);
    }

    private give(text: string): void {
        const bytes = new TextEncoder().encode(text);
        const at = this.wasm.ktl_text(bytes.length);
        if (at === 0) throw new RangeError('the text is too long');
        new Uint8Array(this.wasm.memory.buffer, at, bytes.length).set(bytes);
    }

    private answer(): unknown {
        const at = this.wasm.ktl_answer();
        return JSON.parse(
            new TextDecoder().decode(new Uint8Array(this.wasm.memory.buffer, at, this.wasm.ktl_answer_size())),
        );
    }

    private taken(status: number): State {
        const count = this.lists.properties.length;
        const numbers = new Float64Array(this.wasm.memory.buffer, this.wasm.ktl_columns(), 3 * count + 1);
        const part = (from: number): Properties =>
            Object.fromEntries(
                this.lists.properties.map((row, k) => [row.name, numbers[from + k]!]),
            ) as unknown as Properties;
        const properties = part(0);
        const two = properties.region === 5 || properties.region === 6;
        return {
            status: this.lists.statuses[status]!.name,
            sentence: this.lists.statuses[status]!.sentence,
            properties,
            liquid: two ? part(count) : null,
            vapour: two ? part(2 * count) : null,
            surfaceTension: numbers[3 * count]!,
        };
    }
}

/** The library. A module that compileModule() made, for example in another thread, is used if it is given. */
export async function load(module?: WebAssembly.Module): Promise<Ktl> {
    return new Ktl(await instantiate(module ?? (await compileModule())));
}
