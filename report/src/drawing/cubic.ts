// Smooth curves through samples (Catmull and Rom): over water sampled ten times a period, straight
// lines would lose 5 % of a crest between two samples, which shows as flicker.

export interface Blend {
  at: [number, number, number, number]; // the samples that count
  weight: [number, number, number, number];
}

// The blend for a position among `count` samples, from 0 to count - 1. Positions outside are moved
// to the nearest end.
export function blend(position: number, count: number): Blend {
  const inside = Math.min(Math.max(position, 0), count - 1);
  const left = Math.max(0, Math.min(Math.floor(inside), count - 2));
  const t = inside - left;
  const last = count - 1;
  if (t < 1e-9) return { at: [left, left, left, left], weight: [0, 1, 0, 0] };
  if (t > 1 - 1e-9) return { at: [left + 1, left + 1, left + 1, left + 1], weight: [0, 1, 0, 0] };
  const weight: Blend['weight'] = [
    (-t + 2 * t * t - t * t * t) / 2,
    (2 - 5 * t * t + 3 * t * t * t) / 2,
    (t + 4 * t * t - 3 * t * t * t) / 2,
    (t * t * t - t * t) / 2,
  ];
  const at: Blend['at'] = [left - 1, left, left + 1, left + 2];
  // Beyond an end, the samples go on in a straight line.
  if (at[0] < 0) {
    weight[1] += 2 * weight[0];
    weight[2] -= weight[0];
    weight[0] = 0;
    at[0] = 0;
  }
  if (at[3] > last) {
    weight[2] += 2 * weight[3];
    weight[1] -= weight[3];
    weight[3] = 0;
    at[3] = last;
  }
  return { at, weight };
}
