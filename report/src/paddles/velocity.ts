// Rate of change of samples by central differences of sixth order over seven points. The ends of a
// record that does not repeat have none.
export function velocity(samples: ArrayLike<number>, rate: number, repeats: boolean): Float64Array {
  const count = samples.length;
  const made = new Float64Array(count).fill(NaN);
  if (count < 7) return made;
  const at = (i: number): number => samples[(i + count) % count];
  const margin = repeats ? 0 : 3;
  for (let i = margin; i < count - margin; ++i) {
    const difference = 45 * (at(i + 1) - at(i - 1)) - 9 * (at(i + 2) - at(i - 2)) + (at(i + 3) - at(i - 3));
    made[i] = (difference * rate) / 60;
  }
  return made;
}
