/** Two known values of a state, in the order of the letters. */
export type PairName =
    | 'pt' | 'ph' | 'ps' | 'pu' | 'pv' | 'px' | 'tv' | 'th' | 'ts' | 'tu' | 'tx' | 'sx' | 'hs' | 'us' | 'vh' | 'vs' | 'vu';

/** The letter of a given value: pressure, temperature, specific volume, enthalpy, entropy, internal energy, quality. */
export type Letter = 'p' | 't' | 'v' | 'h' | 's' | 'u' | 'x';

/** A property of a state; `Lists.properties` has the unit and the meaning of each. */
export type PropertyName =
    | 'p' | 't' | 'v' | 'rho' | 'h' | 's' | 'u' | 'x' | 'gibbs' | 'helmholtz' | 'region' | 'cp' | 'cv' | 'speed_of_sound'
    | 'isentropic_exponent' | 'compressibility' | 'expansion' | 'joule_thomson' | 'viscosity' | 'kinematic_viscosity'
    | 'conductivity' | 'prandtl';

/** What became of a request. */
export type StatusName =
    | 'solved' | 'undetermined' | 'not_a_number' | 'pressure_low' | 'pressure_high' | 'temperature_low' | 'temperature_high'
    | 'quality_low' | 'quality_high' | 'above_critical' | 'no_state' | 'cancelled';

/** What a unit measures. */
export type Dimension = 'pressure' | 'temperature' | 'volume' | 'energy' | 'entropy' | 'quality';

export interface PairRow {
    readonly name: PairName;
    readonly first: Letter;
    readonly second: Letter;
    /** Whether stateIf97() takes it, too. */
    readonly if97: boolean;
}

export interface PropertyRow {
    readonly name: PropertyName;
    readonly unit: string;
    /** Its code in the program ktl. */
    readonly code: string;
    readonly meaning: string;
    /** Who has it: a phase and a mixture, a mixture alone, a phase alone. */
    readonly of: 'any' | 'mixture' | 'phase';
}

export interface StatusRow {
    readonly name: StatusName;
    readonly sentence: string;
}

/** A value in this unit is (value - zero) * times / over in the unit of ktl. */
export interface UnitRow {
    readonly name: string;
    readonly dimension: Dimension;
    readonly times: number;
    readonly over: number;
    readonly zero: number;
}

/** The lists of the library. */
export interface Lists {
    readonly version: string;
    readonly pairs: readonly PairRow[];
    readonly properties: readonly PropertyRow[];
    readonly statuses: readonly StatusRow[];
    readonly units: readonly UnitRow[];
}
