// The signals of one bank, decoded, with what the summary says about it.
import type { Mark } from '../charts/chart_types';
import type { BankSignals, PageData, Plan, SummaryBank } from '../data/data';
import { unpack, type Counts } from '../data/packed';
import { inUnit, largest, suited, type Unit } from '../data/units';
import { minus, plainNumber } from '../drawing/axis_ticks';

export interface BankData {
  index: number;
  of: BankSignals;
  summary: SummaryBank;
  plan?: Plan['banks'][number];
  signals: Counts; // [row][sample]
  amplitudes: Counts; // [row][harmonic]
  samples: number;
  repeats: boolean; // the last sample is followed by the first
  unit: Unit;
  peak: number; // largest excursion of any paddle
}

export async function bankData(data: PageData, index: number): Promise<BankData> {
  const of = data.drive[index];
  const drive = data.summary.drive!;
  const [signals, amplitudes] = await Promise.all([unpack(of.signals), unpack(of.spectrum.amplitude)]);
  const samples = signals.shape[1] ?? 0;
  const summary = drive.banks[of.bank];
  const peak = Math.max(largest(of.highest), largest(of.lowest));
  const whole = samples * of.every === drive.samples;
  return {
    index,
    of,
    summary,
    plan: data.summary.plan?.banks[of.bank],
    signals,
    amplitudes,
    samples,
    repeats: whole && drive.ramp === 0 && Math.abs(samples / of.rate - data.summary.run.repeat) < 0.5 / of.rate,
    unit: suited(summary.units, peak),
    peak,
  };
}

export function bankRow(bank: BankData, row: number): Float64Array {
  return bank.signals.slice(row * bank.samples, (row + 1) * bank.samples);
}

// The row of a paddle, or of the nearest one with a signal in the page.
export function rowOf(bank: BankData, paddle: number): number {
  let best = 0;
  bank.of.paddles.forEach((index, row) => {
    if (Math.abs(index - paddle) < Math.abs(bank.of.paddles[best] - paddle)) best = row;
  });
  return best;
}

export function paddleNumber(bank: BankData, paddle: number): number {
  return bank.plan?.paddles.number[paddle] ?? paddle + 1;
}

// "paddle 17 at x 0.0 m, y 4.2 m"
export function paddleName(bank: BankData, paddle: number): string {
  const x = bank.plan?.paddles.x[paddle];
  const y = bank.plan?.paddles.y[paddle];
  const place = x === undefined || y === undefined ? '' : minus(` at x ${x.toFixed(1)} m, y ${y.toFixed(1)} m`);
  return `paddle ${paddleNumber(bank, paddle)}${place}`;
}

export function excursion(bank: BankData, value: number | null): string {
  return `${plainNumber((value ?? NaN) * bank.unit.factor)} ${bank.unit.name}`;
}

// The share of its limits that the bank uses; 0 if they are not known.
export function usedShare(bank: BankData): number {
  const [low, high] = bounds(bank);
  return Math.max(largestOf(bank.of.highest) / high, -largestOf(bank.of.lowest.map((lowest) => -lowest)) / low, 0);
}

// In the unit of the bank. A limit that is not known has no line.
export function limitMarks(bank: BankData, shown = true): Mark[] {
  const { clip_limit: clip, maximum, minimum } = bank.summary;
  const ends = [maximum, minimum].filter((limit): limit is number => limit !== null);
  const marks: Mark[] = [];
  if (clip !== null) marks.push({ name: 'clip limit', axis: 'y', shown, at: [...inUnit([clip, -clip], bank.unit)] });
  if (ends.length > 0) marks.push({ name: 'reach of the machine', axis: 'y', shown, at: [...inUnit(ends, bank.unit)] });
  return marks;
}

function largestOf(values: number[]): number {
  return values.reduce((most, value) => Math.max(most, value), -Infinity);
}

// Greatest and least signal that the machine follows; infinite if not known.
export function bounds({ summary }: BankData): [number, number] {
  const clip = summary.clip_limit ?? Infinity;
  return [Math.max(-clip, summary.minimum ?? -Infinity), Math.min(clip, summary.maximum ?? Infinity)];
}

// The paddle that comes nearest to its limits, or goes farthest.
export function worstPaddle({ of, summary }: Pick<BankData, 'of' | 'summary'>): number {
  const above = summary.clip_limit ?? summary.maximum ?? 1;
  const below = summary.clip_limit ?? -(summary.minimum ?? -1);
  let worst = 0;
  let most = -Infinity;
  of.highest.forEach((highest, i) => {
    const share = Math.max(highest / above, -of.lowest[i] / below);
    if (share > most) [most, worst] = [share, i];
  });
  return worst;
}
