/** The words of the page, English and German, by key. Elements with data-word take theirs when the language changes. */
import { german } from './german.js';

const english = {
    title: 'ktl: properties of water and steam',
    subtitle: 'Water and steam after IFC-67',
    tab_state: 'State',
    tab_chart: 'Chart',
    tab_table: 'Table',
    tab_test: 'Acceptance test',
    theme: 'Dark',
    given: 'Given values',
    atmosphere: 'Atmosphere',
    atmosphere_hint: 'for gauge pressures',
    units_hint: 'With or without a unit: 16.5 MPa, 811 K, 2 800',
    copy: 'Copy',
    copy_text: 'Text',
    copy_csv: 'CSV',
    copy_json: 'JSON',
    copy_link: 'Link',
    copied: 'Copied.',
    property: 'Property',
    value: 'Value',
    unit: 'Unit',
    water: 'Water',
    steam: 'Steam',
    mixture: 'Mixture',
    states_found: 'states have both values',
    state_number: 'State',
    surface_tension: 'surface tension',
    region_1: 'Water',
    region_2: 'Steam',
    region_3: 'Near-critical steam',
    region_4: 'Near-critical water',
    region_5: 'Two phases, near-critical',
    region_6: 'Two phases',
    sub_region_1: 'sub-region 1',
    sub_region_2: 'sub-region 2',
    sub_region_3: 'sub-region 3',
    sub_region_4: 'sub-region 3',
    sub_region_5: 'saturation line',
    sub_region_6: 'saturation line',
    bad_address: 'The address names no state: ',
    chart_kind: 'Chart',
    chart_hs: 'h-s, enthalpy over entropy',
    chart_ts: 'T-s, temperature over entropy',
    chart_ph: 'log p-h, pressure over enthalpy',
    chart_pv: 'log p-log v, pressure over volume',
    chart_label: 'Chart. Arrow keys move the pointer, Enter pins its state, plus and minus zoom, 0 shows all.',
    paint: 'Colour',
    paint_none: 'none',
    painting: 'computing',
    zoom_in: 'Zoom in',
    zoom_out: 'Zoom out',
    zoom_all: 'Show all',
    pointer: 'State under the pointer',
    pointer_hint: 'Point at the chart; click, or press Enter, to pin a state.',
    pins: 'Process',
    pins_hint: 'Pinned states are joined in their order.',
    pin_remove: 'Remove',
    pins_clear: 'Clear',
    pins_copy: 'Copy as CSV',
    step_to: 'Expand or compress the last state to',
    efficiency: 'Efficiency',
    step_add: 'Add',
    step_no_pin: 'Pin a state first.',
    bad_efficiency: 'The efficiency should be above 0, up to 100 %.',
    drop: 'Paste a table, or drop or choose a file',
    table_hint: 'The first line names the columns, with or without units: p_bar, h [kJ/kg], T (°C).',
    choose: 'Choose a file',
    pair: 'Given pair',
    wanted: 'Wanted',
    compute: 'Compute',
    cancel: 'Cancel',
    download: 'Download',
    rows: 'rows',
    rows_solved: 'with a state',
    first_bad: 'First row without a state: line',
    cancelled: 'Cancelled.',
    nothing_given: 'There is no table yet.',
    nothing_wanted: 'Choose at least one property.',
    preview: 'First rows of the result',
    per_second: 'rows per second',
    test_input: 'Measured points of a turbine test',
    test_hint: 'As for the program’s command “ktl compare”: one point on each line, then the sections.',
    example: 'Example',
    scale: 'Temperatures for IFC-67',
    scale_90: 'as measured (ITS-90)',
    scale_68: 'converted to the scale of 1968',
    scale_48: 'converted to the scale of 1948',
    moves_most: 'Moves the heat rate most',
    incomplete: 'Something is missing: a point has no state after one of the formulations.',
    expansion: 'Expansion after',
    points_details: 'Points after both formulations',
    footer: 'Computed in this page by the library ktl. Nothing is sent, nothing is stored.',
    failed: 'This browser cannot run the page: ',
} as const;

export type Word = keyof typeof english;
export type Language = 'en' | 'de';

let current: Language = 'en';

export const language = (): Language => current;

export const word = (key: Word): string => (current === 'de' ? german.words[key] : english[key]);

/** A sentence of the library in the language of the page; English if there is no translation. */
export function sentence(text: string): string {
    if (current === 'en') return text === '' ? text : text.charAt(0).toUpperCase() + text.slice(1) + (/[.!]$/.test(text) ? '' : '.');
    for (const [pattern, translated] of german.sentences)
        if (pattern.test(text)) return text.replace(pattern, translated);
    return text;
}

/** The name of a property or of a column, from the English one. */
export const term = (text: string): string => (current === 'de' ? (german.terms[text] ?? text) : text);

/** Changes the language of all elements that have data-word, data-label or data-hint. */
export function setLanguage(to: Language): void {
    current = to;
    document.documentElement.lang = to;
    document.title = word('title');
    for (const one of document.querySelectorAll<HTMLElement>('[data-word]'))
        one.textContent = word(one.dataset['word'] as Word);
    for (const one of document.querySelectorAll<HTMLElement>('[data-label]'))
        one.setAttribute('aria-label', word(one.dataset['label'] as Word));
}
