// Units that suit the size of numbers. Shown number = SI number * factor.
export interface Unit {
  name: string;
  factor: number;
}

// For m, rad, m/s, rad/s: thousandths below 1.
export function suited(si: string, largest: number): Unit {
  return largest < 1 ? { name: 'm' + si, factor: 1000 } : { name: si, factor: 1 };
}

export function densityUnit(largest: number): Unit {
  if (largest < 1e-4) return { name: 'mm²/Hz', factor: 1e6 };
  if (largest < 0.1) return { name: 'cm²/Hz', factor: 1e4 };
  return { name: 'm²/Hz', factor: 1 };
}

// A copy in the unit.
export function inUnit(values: ArrayLike<number | null>, unit: Unit): Float64Array {
  const shown = new Float64Array(values.length);
  for (let i = 0; i < shown.length; ++i) shown[i] = (values[i] ?? NaN) * unit.factor;
  return shown;
}

// The largest magnitude; NaN is passed over.
export function largest(values: ArrayLike<number | null>): number {
  let most = 0;
  for (let i = 0; i < values.length; ++i) {
    const size = Math.abs(values[i] ?? 0);
    if (size > most) most = size;
  }
  return most;
}

// Index of the greatest value, or with -1 of the least; null and NaN are passed over.
export function greatest(values: ArrayLike<number | null>, sign: 1 | -1): number {
  let best = 0;
  for (let i = 0; i < values.length; ++i) {
    if (sign * (values[i] ?? NaN) > sign * (values[best] ?? -sign * Infinity)) best = i;
  }
  return best;
}
