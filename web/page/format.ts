/** Numbers, names and units as the page shows them. */
import type { Ktl, PropertyName, PropertyRow } from 'ktl-steam';
import { language, term } from './words.js';

const superscripts: Readonly<Record<string, string>> = {
    '-': '⁻', '0': '⁰', '1': '¹', '2': '²', '3': '³', '4': '⁴', '5': '⁵', '6': '⁶', '7': '⁷', '8': '⁸', '9': '⁹',
};

/** A number with so many significant digits: plain, or with a power of ten if that is long. Empty if it is not finite. */
export function shown(value: number, digits = 7): string {
    if (Number.isNaN(value)) return '';
    if (!Number.isFinite(value)) return value > 0 ? '∞' : '−∞';
    const size = Math.abs(value);
    let text: string;
    if (size !== 0 && (size < 1e-4 || size >= 1e7)) {
        const [mantissa, exponent] = value.toExponential(digits - 1).split('e') as [string, string];
        const power = [...exponent.replace('+', '')].map((c) => superscripts[c] ?? c).join('');
        text = `${mantissa}·10${power}`;
    } else {
        text = value.toPrecision(digits);
        if (text.includes('e')) text = String(Number(text));
    }
    text = text.replace('-', '−');
    return language() === 'de' ? text.replace('.', ',') : text;
}

/** A number beside an axis. */
export const tick = (value: number): string => {
    const text = String(Number(value.toPrecision(10))).replace('-', '−');
    return language() === 'de' ? text.replace('.', ',') : text;
};

/** A number for files: the shortest of ten digits. */
export const plain = (value: number): string => (Number.isFinite(value) ? String(Number(value.toPrecision(10))) : '');

/** The unit with its signs: °C, m³/kg, kJ/(kg K). */
export const unitText = (unit: string): string =>
    unit === '1' ? '' : unit.replace('degC', '°C').replace(/m3/, 'm³').replace(/m2/, 'm²').replace(/ K\)/, '\u202fK)');

const symbols: Readonly<Partial<Record<PropertyName, string>>> = {
    t: 't', rho: 'ρ', gibbs: 'g', helmholtz: 'f', cp: 'cₚ', cv: 'cᵥ', speed_of_sound: 'w', isentropic_exponent: 'κ',
    compressibility: 'κₜ', expansion: 'α', joule_thomson: 'μ', viscosity: 'η', kinematic_viscosity: 'ν',
    conductivity: 'λ', prandtl: 'Pr',
};

export const symbol = (name: PropertyName): string => symbols[name] ?? name;

/** What a property is, without the explanation that follows it in the list. */
export const meaning = (row: PropertyRow): string => term(row.meaning.replace(/(,| h - | u - | -\(| \(d| at ).*$/, '').trim());

export function rowOf(ktl: Ktl, name: PropertyName): PropertyRow {
    return ktl.lists.properties.find((row) => row.name === name)!;
}
