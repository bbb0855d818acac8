// What each pixel of the heat map shows: the count of largest magnitude among its paddles and times.
import type { Counts } from '../data/packed';

const NOTHING = -32768; // NaN

// `across` by `up` cells over all rows, and the samples from `from` to `to` (not whole numbers).
export function mapCells({ counts, shape }: Counts, from: number, to: number, across: number, up: number): Int16Array {
  const [rows, samples] = shape;
  const cells = new Int16Array(across * up).fill(NOTHING);
  const edges = Int32Array.from({ length: across + 1 }, (_, i) => Math.floor(from + ((to - from) * i) / across));
  for (let j = 0; j < up; ++j) {
    const lowest = Math.floor((j * rows) / up);
    const end = Math.max(lowest + 1, Math.floor(((j + 1) * rows) / up));
    for (let i = 0; i < across; ++i) {
      const start = Math.max(0, Math.min(edges[i], samples - 1));
      const stop = Math.min(samples, Math.max(edges[i] + 1, edges[i + 1]));
      let most = -1;
      let value = NOTHING;
      for (let row = lowest; row < end; ++row) {
        for (let k = row * samples + start; k < row * samples + stop; ++k) {
          const count = counts[k];
          const size = count < 0 ? -count : count;
          if (size > most && count !== NOTHING) [most, value] = [size, count];
        }
      }
      cells[j * across + i] = value;
    }
  }
  return cells;
}
