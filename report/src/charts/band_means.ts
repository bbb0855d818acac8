// Means over bands of harmonics: the density of a single record is too rough to be compared.
export function bandMeans(
  f: ArrayLike<number>,
  values: ArrayLike<number>,
  harmonics: number,
): { f: number[]; values: number[] } {
  const made = { f: [] as number[], values: [] as number[] };
  for (let start = 0; start + harmonics <= values.length; start += harmonics) {
    let sum = 0;
    for (let i = start; i < start + harmonics; ++i) sum += values[i];
    made.f.push((f[start] + f[start + harmonics - 1]) / 2);
    made.values.push(sum / harmonics);
  }
  return made;
}
