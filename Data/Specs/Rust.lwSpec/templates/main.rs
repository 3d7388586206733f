fn main() {
    println!("Hello");
}
