// The stretch of a horizontal axis that a chart shows, and the place marked on it. Charts over time
// share those of the view.
import type { View } from '../page/view';

export interface Stretch {
  readonly first: number; // of the whole axis
  readonly last: number;
  readonly from: number; // of what is shown
  readonly to: number;
  readonly at: number; // the place marked; NaN for none
  readonly step?: number; // of the arrow keys; absent: by the width shown
  show(from: number, to: number): void;
  mark(at: number): void;
}

export class TimeStretch implements Stretch {
  readonly first = 0;
  constructor(private readonly view: View) {}

  get last(): number {
    return this.view.repeat;
  }
  get from(): number {
    return this.view.from;
  }
  get to(): number {
    return this.view.to;
  }
  get at(): number {
    return this.view.time;
  }
  show(from: number, to: number): void {
    this.view.set(within(this, from, to));
  }
  mark(at: number): void {
    this.view.set({ time: Math.min(Math.max(at, this.first), this.last) });
  }
}

// Of one chart alone.
export class OwnStretch implements Stretch {
  from: number;
  to: number;
  at = NaN;
  constructor(
    private readonly view: View,
    readonly first: number,
    readonly last: number,
  ) {
    this.from = first;
    this.to = last;
  }
  show(from: number, to: number): void {
    Object.assign(this, within(this, from, to));
    this.view.set({});
  }
  mark(at: number): void {
    this.at = Math.min(Math.max(at, this.first), this.last);
    this.view.set({});
  }
}

export function reset(stretch: Stretch): void {
  stretch.show(stretch.first, stretch.last);
}

// Keeps the marked place, or else the middle, where it is in the picture.
export function zoom(stretch: Stretch, factor: number): void {
  const { from, to, at } = stretch;
  const fixed = at >= from && at <= to ? at : (from + to) / 2;
  stretch.show(fixed - (fixed - from) * factor, fixed + (to - fixed) * factor);
}

export function pan(stretch: Stretch, part: number): void {
  const by = part * (stretch.to - stretch.from);
  stretch.show(stretch.from + by, stretch.to + by);
}

// Moves the mark by steps of the arrow keys, and what is shown along with it.
export function move(stretch: Stretch, steps: number): void {
  const { from, to } = stretch;
  const start = Number.isNaN(stretch.at) ? (from + to) / 2 : stretch.at;
  goTo(stretch, start + steps * (stretch.step ?? (to - from) / 200));
}

export function goTo(stretch: Stretch, at: number): void {
  stretch.mark(at);
  const { from, to } = stretch;
  const place = Math.min(Math.max(at, stretch.first), stretch.last);
  if (place < from || place > to) stretch.show(place - (to - from) / 2, place + (to - from) / 2);
}

function within(stretch: Stretch, from: number, to: number): { from: number; to: number } {
  const { first, last } = stretch;
  const span = Math.min(Math.max(to - from, (last - first) * 1e-5), last - first);
  const start = Math.min(Math.max(from, first), last - span);
  return { from: start, to: start + span };
}
