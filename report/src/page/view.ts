// What all charts share: the time, the stretch of time that is shown, the chosen paddle, the colours.
export type Listener = () => void;

export class View {
  time: number; // s, marked in every chart
  from = 0; // s, of the stretch that charts over time show
  to: number;
  bank = 0;
  paddle = 0; // index in the bank, from 0
  playing = false;
  grey = false; // pictures must be readable in black and white
  private listeners = new Set<Listener>();
  private pending = false;

  constructor(readonly repeat: number) {
    this.time = 0;
    this.to = repeat;
  }

  // Changes some of it. Charts hear of them once a picture, however many they are.
  set(change: Partial<Pick<View, 'time' | 'from' | 'to' | 'bank' | 'paddle' | 'playing' | 'grey'>>): void {
    Object.assign(this, change);
    if (this.pending) return;
    this.pending = true;
    requestAnimationFrame(() => this.tell());
  }

  // Tells all charts now: before printing there is no next picture.
  tell(): void {
    this.pending = false;
    for (const listener of this.listeners) listener();
  }

  // Calls `listener` after each change, and when the colour scheme of the reader changes.
  watch(listener: Listener): void {
    this.listeners.add(listener);
  }
}
