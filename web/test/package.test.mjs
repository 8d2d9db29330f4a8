// The npm package in node: the bits of the native library, and what is read and refused.
import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { test } from 'node:test';
import { load } from '../../build/web/package/ktl.js';

const ktl = await load();
const root = new URL('../../', import.meta.url);
const rows = 100_000;

/** The hash of a row as native_rows.cpp makes it. */
function hashes(columns, status) {
    const views = [...columns, Float64Array.from(status)].map((column) => new Uint32Array(column.buffer));
    return Uint32Array.from(status, (_, row) => {
        let hash = 0x811c9dc5;
        for (const view of views) {
            let low = view[2 * row];
            let high = view[2 * row + 1];
            if ((high & 0x7ff00000) === 0x7ff00000 && ((high & 0xfffff) | low) !== 0) [low, high] = [0, 0x7ff80000];
            hash = Math.imul(Math.imul(hash ^ low, 0x01000193) ^ high, 0x01000193);
        }
        return hash >>> 0;
    });
}

test('every pair has the bits of the native library', () => {
    const bytes = readFileSync(new URL('build/web/native/rows', root)).buffer;
    const names = ktl.lists.properties.map((property) => property.name);
    let at = 0;
    const costs = [];
    for (const { name } of ktl.lists.pairs) {
        const a = new Float64Array(bytes, at, rows);
        const b = new Float64Array(bytes, at + 8 * rows, rows);
        const native = new Uint32Array(bytes, at + 16 * rows, rows);
        at += 20 * rows;
        const before = process.cpuUsage();
        const { columns, status, solved } = ktl.batch(name, a, b, names);
        const { user, system } = process.cpuUsage(before);
        costs.push(`${name} ${((user + system) / rows).toFixed(2)}`);
        const ours = hashes(names.map((property) => columns[property]), status);
        const differing = [...ours.keys()].filter((row) => ours[row] !== native[row]);
        assert.ok(solved > 0.8 * rows && solved < rows, `${name}: ${solved} solved`);
        assert.deepEqual(differing.map((row) => [a[row], b[row]]), [], `${name}: rows with other bits`);
    }
    assert.equal(at, bytes.byteLength);
    console.log(`processor time of a row with all properties, microseconds: ${costs.join(', ')}`);
});

test('a single state is that of a column', () => {
    for (const [pair, a, b] of [['ph', 100, 2800], ['pt', 10, 100], ['hs', 2500, 6.5], ['tx', 200, 0.4], ['pt', -1, 20]]) {
        const single = ktl.state(pair, a, b);
        for (const { name } of ktl.lists.properties) {
            const column = ktl.batch(pair, Float64Array.of(a), Float64Array.of(b), [name]).columns[name];
            assert.ok(Object.is(single.properties[name], column[0]), `${pair} ${name}`);
        }
    }
});

test('mixtures have both phases, and several states are counted', () => {
    const wet = ktl.state('px', 10, 0.5);
    assert.equal(wet.liquid.p, wet.vapour.p);
    assert.ok(Math.abs((wet.liquid.h + wet.vapour.h) / 2 - wet.properties.h) < 1e-9);
    assert.ok(wet.surfaceTension > 0.04 && wet.surfaceTension < 0.05);
    assert.equal(ktl.state('pt', 10, 100).liquid, null);
    const { v } = ktl.state('pt', 10, 2).properties;
    assert.equal(ktl.stateCount('pv', 10, v), 2);
    assert.ok(ktl.state('pv', 10, v).properties.t > ktl.state('pv', 10, v, 1).properties.t);
    assert.equal(ktl.state('pv', 10, v, 2).status, 'no_state');
});

test('what has no state says why', () => {
    for (const [pair, a, b, status] of [
        ['pt', 1001, 20, 'pressure_high'],
        ['pt', 1, 801, 'temperature_high'],
        ['px', 1, 1.5, 'quality_high'],
        ['px', 300, 0.5, 'above_critical'],
        ['pt', 0.001, 20, 'pressure_low'],
        ['hs', 1000, 9, 'no_state'],
        ['pt', NaN, 20, 'not_a_number'],
    ]) {
        const state = ktl.state(pair, a, b);
        assert.equal(state.status, status, `${pair} ${a} ${b}`);
        assert.ok(Number.isNaN(state.properties.h));
        assert.ok(state.sentence.length > 10);
    }
    assert.throws(() => ktl.state('pz', 1, 2), RangeError);
    assert.throws(() => ktl.batch('pt', new Float64Array(1), new Float64Array(2), ['h']), RangeError);
});

test('values are read as people write them', () => {
    for (const [letter, text, value] of [
        ['p', '16.5MPa', 165],
        ['p', ' 16,5 MPa ', 165],
        ['p', '1\u202f000', 1000],
        ['h', '2 800', 2800],
        ['h', '2 800,5 kJ/kg', 2800.5],
        ['t', '811.15 K', 538],
        ['t', '\u221210 °C', -10],
        ['s', '6,5 kJ/(kg K)', 6.5],
        ['x', '35 %', 0.35],
        ['p', '1e-2', 0.01],
    ]) {
        const reading = ktl.read(letter, text);
        assert.ok(Math.abs(reading.value - value) < 1e-9, `${text}: ${JSON.stringify(reading)}`);
    }
    for (const [letter, text, words] of [
        ['p', '', 'is empty'],
        ['p', 'abc', 'not a number'],
        ['p', '1,234.5', 'more than one decimal mark'],
        ['p', '10 psi', 'absolute or gauge'],
        ['p', '3 barg', 'atmosphere'],
        ['p', '3 mpa', 'M is mega'],
        ['t', '20 bar', 'no unit'],
        ['h', '1e999', 'too large'],
        ['h', '\u{1F600}'.repeat(1000), 'not a number'],
    ]) {
        const reading = ktl.read(letter, text);
        assert.ok(reading.error?.includes(words) || (words === 'no unit' && reading.error), `${text}: ${JSON.stringify(reading)}`);
    }
    assert.equal(ktl.read('p', '2 barg', 1.013).value, 3.013);
});

test('columns of a table are found and converted', () => {
    const found = ktl.findColumns(['name', 'h [J/kg]', 'P_MPa'], 'ph');
    assert.deepEqual(found, { first: 2, second: 1, first_unit: 'MPa', second_unit: 'J/kg' });
    const a = Float64Array.of(10, 1);
    const b = Float64Array.of(2.8e6, 5e5);
    ktl.convert(a, b);
    assert.deepEqual([[...a], [...b]], [[100, 10], [2800, 500]]);
    assert.match(ktl.findColumns(['a', 'b'], 'ph').error, /pressure|column/);
});

test('a plant test has the tables of the program', () => {
    const csv = readFileSync(new URL('examples/turbine_test.csv', root), 'utf8');
    const comparison = ktl.compare(csv);
    const table = (name) => comparison.tables.find((one) => one.name === name);
    assert.equal(comparison.complete, true);
    // The figures that docs/two-formulations.md has from the program.
    assert.deepEqual(table('sections').rows.map((row) => row.slice(3, 6).map((cell) => cell[0])),
        [['88.974', '89.433', '0.459'], ['89.668', '89.899', '0.231'], ['87.500', '87.500', '0.000']]);
    assert.deepEqual(table('totals').rows[2].slice(2).map((cell) => cell[0]), ['7632.58', '7618.39', '-14.19', '-0.1859']);
    assert.equal(table('shares').rows[0][6][0], '36.5');
    assert.match(ktl.compare('').error, /empty/);
    assert.match(ktl.compare('point,P_bar,T_degC\nA,x,20\n').error, /line 2, column 'P_bar': 'x' is not a number/);
    assert.match(ktl.compare('x'.repeat(2_000_000)).error, /too long|no column/);
});

test('a batch can be stopped', () => {
    const p = new Float64Array(10_000).fill(10);
    const seen = [];
    const { status, solved } = ktl.batch('pt', p, p, ['h'], (done) => seen.push(done) < 2);
    assert.equal(solved, seen[1]);
    assert.equal(ktl.lists.statuses[status.at(-1)].name, 'cancelled');
});
