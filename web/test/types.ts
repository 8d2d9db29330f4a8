// Compiles with the package's declarations alone: what its users write.
import { load, type Batch, type Ktl, type PairName, type State } from 'ktl-steam';

export async function use(): Promise<number> {
    const ktl: Ktl = await load();
    const pair: PairName = 'ph';
    const state: State = ktl.state(pair, 100, 2800);
    const batch: Batch = ktl.batch('pt', Float64Array.of(1), Float64Array.of(100), ['h', 'speed_of_sound']);
    const column: Float64Array | undefined = batch.columns.h;
    // @ts-expect-error there is no such pair
    ktl.state('pz', 1, 2);
    // @ts-expect-error there is no such property
    ktl.batch('pt', Float64Array.of(1), Float64Array.of(100), ['enthalpy']);
    return state.properties.t + (column?.[0] ?? 0) + (state.liquid?.v ?? 0);
}
