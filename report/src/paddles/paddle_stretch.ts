// The paddles of a bank as the axis of a chart: its mark is the chosen paddle.
import type { Stretch } from '../charts/stretch';
import type { View } from '../page/view';

export class PaddleStretch implements Stretch {
  readonly first = 0.25;
  readonly last: number;
  readonly step = 1;
  from: number;
  to: number;

  constructor(
    private readonly view: View,
    private readonly bank: number,
    private readonly paddles: number,
  ) {
    this.last = paddles + 0.75;
    this.from = this.first;
    this.to = this.last;
  }
  get at(): number {
    return this.view.bank === this.bank ? this.view.paddle + 1 : NaN;
  }
  show(from: number, to: number): void {
    const span = Math.min(Math.max(to - from, Math.min(5, this.last - this.first)), this.last - this.first);
    this.from = Math.min(Math.max(from, this.first), this.last - span);
    this.to = this.from + span;
    this.view.set({});
  }
  mark(at: number): void {
    if (Number.isNaN(at)) return;
    this.view.set({ bank: this.bank, paddle: Math.min(Math.max(Math.round(at) - 1, 0), this.paddles - 1) });
  }
}
