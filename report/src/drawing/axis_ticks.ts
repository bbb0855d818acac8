// Round numbers along an axis.

export interface Ticks {
  values: number[]; // ascending, within the range
  step: number; // 1, 2 or 5 times a power of ten
  label(value: number): string; // with as many decimals as the step needs
}

// At most about `most` round numbers from `from` to `to`.
export function ticks(from: number, to: number, most = 6): Ticks {
  const span = to - from;
  if (!(span > 0) || !isFinite(span)) return { values: [from], step: 0, label: (value) => plainNumber(value) };
  const step = roundStep(span / Math.max(1, most));
  const decimals = Math.max(0, -Math.floor(Math.log10(step) + 1e-9));
  const values: number[] = [];
  const first = Math.ceil(from / step - 1e-6);
  const last = Math.floor(to / step + 1e-6);
  // Far from 0, whole numbers are further apart than 1, and counting them would not end.
  if (decimals > 100 || !Number.isSafeInteger(first) || !Number.isSafeInteger(last)) {
    return { values: [from], step: 0, label: (value) => plainNumber(value) };
  }
  for (let i = first; i <= last; ++i) values.push(Number((i * step).toFixed(decimals)));
  return { values, step, label: (value) => minus(value.toFixed(decimals)) };
}

// The smallest of 1, 2, 5, 10, 20, 50, ... (and 0.5, 0.2, 0.1, ...) that is not below `least`.
export function roundStep(least: number): number {
  const power = 10 ** Math.floor(Math.log10(least));
  const times = [1, 2, 5, 10].find((factor) => factor * power >= least * (1 - 1e-9)) ?? 10;
  return times * power;
}

// The sign of numbers that are shown. Files have the plain hyphen.
export function minus(text: string): string {
  return text.replaceAll('-', '−');
}

// The same in texts of the run: a hyphen between letters, or between two numbers, stays.
export function withMinus(text: string): string {
  return text.replace(/(^|[\s(])-(?=[\d.])/g, '$1−');
}

// A number with a few significant digits and without an exponent where that is readable: "0.157",
// "12.3", "1234". NaN, null and infinity give a dash.
export function plainNumber(value: number | null | undefined, digits = 3): string {
  if (value === null || value === undefined || !isFinite(value)) return '–';
  if (value === 0) return '0';
  const size = Math.floor(Math.log10(Math.abs(value)));
  if (size < -4 || size > 6) return minus(value.toExponential(digits - 1));
  return minus(String(Number(value.toPrecision(Math.max(digits, size + 1)))));
}

// A length in the unit that suits it: "78.5 mm", "2 m".
export function lengthText(metres: number | null | undefined, digits = 3): string {
  if (metres === null || metres === undefined || !isFinite(metres)) return '–';
  return Math.abs(metres) < 1 ? `${plainNumber(metres * 1000, digits)} mm` : `${plainNumber(metres, digits)} m`;
}
